import QtQuick
import Corvane

ScreenTest {
    id: test

    name: "Main"

    Component {
        id: subject

        Main {
            tuner: test.tuner
        }
    }

    function shown(properties) {
        const window = make(subject, properties);
        window.visible = true;
        tryCompare(window, "active", true);
        return window;
    }

    function screen(window) {
        return all(window.contentItem, TunerView)[0];
    }

    function test_is_named_after_the_program() {
        compare(make(subject).title, "Corvane");
    }

    function test_the_screen_is_480_by_860_at_first() {
        const view = screen(shown());
        compare(view.width, 480);
        compare(view.height, 860);
    }

    function test_the_screen_cannot_get_smaller_than_420_by_680() {
        const window = make(subject);
        const bar = all(window.contentItem, HelpMenuBar)[0];
        compare(window.minimumWidth, 420);
        compare(window.minimumHeight, 680 + bar.height);
        verify(window.maximumWidth > 10000);
        verify(window.maximumHeight > 10000);
    }

    function test_the_screen_lies_below_the_menu_bar_and_grows_with_the_window() {
        const window = shown();
        const bar = all(window.contentItem, HelpMenuBar)[0];
        compare(bar.y, 0);
        compare(bar.width, 480);
        compare(screen(window).y, bar.height);
        window.width = 700;
        window.height = 1000 + bar.height;
        tryCompare(screen(window), "width", 700);
        tryCompare(screen(window), "height", 1000);
    }

    function test_larger_texts_enlarge_the_whole_screen() {
        const window = shown({
                textZoom: 2
            });
        compare(window.width, 960);
        compare(window.height, 2 * 888);
        const view = screen(window);
        compare(view.width, 480);
        compare(view.height, 860);
        compare(view.mapToItem(window.contentItem, 0, 0, 480, 860), Qt.rect(0, 56, 960, 1720));
    }

    function test_the_smallest_window_is_no_larger_for_larger_texts_and_shows_all() {
        const window = shown({
                textZoom: 2
            });
        compare(window.minimumWidth, 420);
        window.width = 420;
        window.height = 708;
        tryCompare(screen(window), "width", 420);
        compare(window.zoom, 1);
        window.width = 840;
        tryCompare(screen(window), "width", 840);
        window.height = 1062;
        tryCompare(window, "zoom", 1.5);
        compare(screen(window).width, 560);
    }

    function test_a_list_opens_inside_the_enlarged_window() {
        const window = shown({
                textZoom: 2
            });
        const menu = menuOf(buttonOf(window.contentItem, "Standard"));
        waitForRendering(screen(window)); // A list closes when its window changes its size.
        menu.open();
        const list = menu.shown.list;
        tryVerify(() => list.height > 0);
        const place = list.mapToItem(window.contentItem, 0, 0, list.width, list.height);
        verify(place.x >= 0 && place.x + place.width <= window.width, `${place}`);
        verify(place.y >= 0 && place.y + place.height <= window.height, `${place}`);
        compare(place.height, 2 * list.height);
        menu.close(Qt.TabFocusReason);
    }

    function test_no_text_is_cut_data() {
        return [1, 1.25, 1.5, 1.75, 2].map(zoom => ({
                    tag: `${zoom}`,
                    zoom: zoom
                }));
    }

    function test_no_text_is_cut(row) {
        tuner.loseMicrophone();
        tuner.a4 = 422; // Its title is the longest.
        tuner.chooseTuning("g8-standard");
        const window = shown({
                textZoom: row.zoom
            });
        for (const label of textItems(window.contentItem).filter(each => each instanceof Label)) {
            verify(!label.truncated, label.text);
            verify(label.contentWidth <= label.width + 0.5, `${label.text} ${label.contentWidth}`);
            verify(label.contentHeight <= label.height + 0.5, label.text);
        }
    }

    function test_its_ground_is_dark() {
        compareColor(make(subject).color, TunerTheme.bg);
    }

    function test_the_help_menu_opens_the_privacy_policy() {
        const window = shown();
        const help = buttonOf(window.contentItem, "Help");
        mouseClick(help);
        mouseClick(entryOf(listOf(menuOf(help)), "Privacy Policy"));
        compare(tuner.opened.length, 1);
    }

    function test_every_control_can_be_reached_with_the_tab_key() {
        const window = shown();
        const names = [];
        for (let i = 0; i < 40; ++i) {
            keyClick(Qt.Key_Tab);
            const item = window.activeFocusItem;
            if (item && item.Accessible.name !== "" && !names.includes(item.Accessible.name))
                names.push(item.Accessible.name);
        }
        compare(names, ["Help", "Guitar", "Bass", "Piano", "Left-handed string order", "Standard", "Auto", "E2", "A2", "D3", "G3", "B3", "E4", "440  Modern", "Concert pitch in hertz", "415 Hz", "432 Hz", "440 Hz", "466 Hz", "Play reference", "Privacy Policy"]);
    }
}
