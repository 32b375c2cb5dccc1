import QtQuick
import Corvane

ScreenTest {
    id: test

    name: "AutoChip"

    Component {
        id: subject

        TunerRow {
            tuner: test.tuner
            itemWidth: 41.5

            AutoChip {}
        }
    }

    function chip() {
        return make(subject).children[0];
    }

    function test_is_a_square_of_the_size_the_row_gives() {
        const auto = chip();
        compare(auto.width, 41.5);
        compare(auto.height, 41.5);
    }

    function test_says_auto() {
        const label = textItem(chip(), "Auto");
        compare(label.font.pixelSize, TypeScale.subheadline);
        compare(label.font.weight, Font.DemiBold);
    }

    function test_its_text_stays_clear_of_its_outline_data() {
        return [36, 41.5, 54].map(side => ({
                    tag: String(side),
                    side: side
                }));
    }

    function test_its_text_stays_clear_of_its_outline(row) {
        const auto = make(subject, {
                itemWidth: row.side
            }).children[0];
        const label = textItem(auto, "Auto");
        // The outline is 2 points wide.
        verify(label.contentWidth < row.side - 2 * 2, label.contentWidth);
        verify(!label.truncated);
    }

    function test_is_selected_while_no_string_is_locked() {
        const auto = chip();
        compareColor(textItem(auto, "Auto").color, TunerTheme.gold);
        compareColor(groundOf(auto).color, faded(TunerTheme.gold, 0.22));
        compareColor(groundOf(auto).borderColor, TunerTheme.gold);
        compare(groundOf(auto).borderWidth, 2);
        compare(groundOf(auto).radius, 12);
    }

    function test_is_plain_while_a_string_is_locked() {
        const auto = chip();
        tuner.toggleLock(1);
        compareColor(textItem(auto, "Auto").color, "white");
        compareColor(groundOf(auto).color, TunerTheme.card);
        compareColor(groundOf(auto).borderColor, white(0.08));
        compare(groundOf(auto).borderWidth, 1);
    }

    function test_a_tap_releases_the_lock() {
        const auto = chip();
        tuner.toggleLock(1);
        mouseClick(auto);
        verify(!tuner.locked);
        mouseClick(auto);
        verify(!tuner.locked);
    }

    function test_the_space_bar_releases_the_lock() {
        const auto = chip();
        tuner.toggleLock(1);
        auto.forceActiveFocus();
        keyClick(Qt.Key_Space);
        verify(!tuner.locked);
    }

    function test_tells_a_screen_reader_whether_it_is_selected() {
        const auto = chip();
        compare(auto.Accessible.role, Accessible.RadioButton);
        compare(auto.Accessible.name, "Auto");
        verify(auto.Accessible.checked);
        tuner.toggleLock(1);
        verify(!auto.Accessible.checked);
    }
}
