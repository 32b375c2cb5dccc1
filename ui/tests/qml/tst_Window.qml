// SPDX-License-Identifier: MIT
import QtQuick
import Corvane

ScreenTest {
    id: test

    name: "Window"

    function screen(window) {
        return only(window.contentItem, TunerView);
    }

    function test_its_first_size_is_480_by_860_and_it_grows() {
        const window = showWindow();
        const view = screen(window);
        compare([view.width, view.height], [480, 860]);
        compare(window.title, "Corvane");
        const bar = only(window.contentItem, HelpMenuBar);
        compare([bar.y, bar.width, view.y], [0, 480, bar.height]);
        window.width = 700;
        window.height = 1000 + bar.height;
        tryCompare(view, "width", 700, limit);
        tryCompare(view, "height", 1000, limit);
    }

    function test_it_cannot_be_resized_below_420_by_680() {
        const window = show("app/Main");
        compare(window.minimumWidth, 420);
        compare(window.minimumHeight - only(window.contentItem, HelpMenuBar).height, 680);
        verify(window.maximumWidth > 10000 && window.maximumHeight > 10000);
    }

    function test_larger_texts_enlarge_the_whole_screen() {
        const window = showWindow(2);
        compare([window.width, window.height], [960, 2 * 888]);
        const view = screen(window);
        compare([view.width, view.height], [480, 860]);
        compare(view.mapToItem(window.contentItem, 0, 0, 480, 860), Qt.rect(0, 56, 960, 1720));
    }

    function test_larger_texts_leave_the_screen_its_smallest_size_data() {
        const sizes = [[420, 708, 1], [840, 708, 1], [840, 1062, 1.5], [630, 1416, 1.5]];
        return table(["width", "height", "zoom"], sizes);
    }

    function test_larger_texts_leave_the_screen_its_smallest_size(row) {
        const window = showWindow(2);
        compare(window.minimumWidth, 420);
        window.width = row.width;
        window.height = row.height;
        tryCompare(screen(window), "width", row.width / row.zoom, limit);
        tryCompare(window, "zoom", row.zoom, limit);
    }

    function test_a_list_opens_inside_the_enlarged_window_below_its_button() {
        const window = showWindow(2);
        const button = buttonOf(window.contentItem, "Standard");
        paint(screen(window)); // A resize would close the list.
        button.press();
        const ground = listOf(only(button, PullDownMenu)).parent;
        verify(ground.height > 0);
        verifyInside(ground, window.contentItem);
        const left = item => item.mapToItem(window.contentItem, 0, 0, item.width, item.height).left;
        compare([left(ground), ground.width], [left(button), 300]);
        only(button, PullDownMenu).close(Qt.TabFocusReason);
    }

    function test_no_text_is_cut_at_any_zoom() {
        tuner.loseMicrophone();
        tuner.a4 = 422; // Its title is the longest.
        tuner.chooseTuning("g8-standard");
        for (const zoom of [1, 1.25, 1.5, 1.75, 2]) {
            const labels = textItems(showWindow(zoom).contentItem).filter(each => each instanceof Label);
            for (const each of labels) {
                verify(!each.truncated, each.text);
                verify(each.contentWidth <= each.width + 0.5, `${each.text} ${each.contentWidth}`);
                verify(each.contentHeight <= each.height + 0.5, each.text);
            }
        }
    }
}
