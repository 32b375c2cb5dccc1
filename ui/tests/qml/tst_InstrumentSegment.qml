import QtQuick
import Corvane

ScreenTest {
    id: test

    name: "InstrumentSegment"

    Component {
        id: subject

        TunerRow {
            tuner: test.tuner
            itemWidth: 90
            height: 24

            InstrumentSegment {
                index: 1
                modelData: "Bass"
            }
        }
    }

    function segment() {
        return make(subject).children[0];
    }

    function test_has_the_size_the_row_gives() {
        const bass = segment();
        compare(bass.width, 90);
        compare(bass.height, 24);
        compare(texts(bass), ["Bass"]);
    }

    function test_is_raised_while_its_instrument_is_chosen() {
        const bass = segment();
        verify(!bass.checked);
        const resting = groundOf(bass).color.a;
        tuner.instrument = 1;
        verify(bass.checked);
        verify(groundOf(bass).color.a > resting);
    }

    function test_stays_chosen_when_it_is_clicked_twice() {
        const bass = segment();
        mouseClick(bass);
        mouseClick(bass);
        compare(tuner.instrument, 1);
        verify(bass.checked);
        tuner.instrument = 0;
        verify(!bass.checked);
    }

    function test_is_chosen_from_the_keyboard() {
        const bass = segment();
        bass.forceActiveFocus(Qt.TabFocusReason);
        verify(all(bass, FocusRing)[0].visible);
        keyClick(Qt.Key_Space);
        compare(tuner.instrument, 1);
    }

    function test_tells_a_screen_reader_whether_it_is_chosen() {
        const bass = segment();
        compare(bass.Accessible.role, Accessible.RadioButton);
        compare(bass.Accessible.name, "Bass");
        verify(!bass.Accessible.checked);
        bass.Accessible.toggleAction();
        compare(tuner.instrument, 1);
        verify(bass.Accessible.checked);
    }
}
