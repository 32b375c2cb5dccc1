import QtQuick
import Corvane

ScreenTest {
    id: test

    name: "InstrumentPicker"

    Component {
        id: subject

        InstrumentPicker {
            width: 364
            tuner: test.tuner
        }
    }

    function test_its_label_stands_beside_the_segments_in_their_order() {
        const picker = make(subject);
        compare(texts(picker), ["Instrument", "Guitar", "Bass", "Piano"]);
        const starts = textItems(picker).map(each => each.mapToItem(picker, 0, 0).x);
        verify(starts[0] < starts[1] && starts[1] < starts[2] && starts[2] < starts[3], starts.join());
    }

    function test_the_segments_are_equally_wide_and_fill_the_rest() {
        const segments = all(make(subject), InstrumentSegment);
        compare(segments.length, 3);
        compare(segments[1].width, segments[0].width);
        compare(segments[2].width, segments[0].width);
        verify(3 * segments[0].width > 364 / 2, segments[0].width);
    }

    function test_a_click_chooses_the_instrument_data() {
        return [
            {
                tag: "Piano",
                index: 2
            },
            {
                tag: "Bass",
                index: 1
            },
            {
                tag: "Guitar",
                index: 0
            }
        ];
    }

    function test_a_click_chooses_the_instrument(row) {
        const picker = make(subject);
        tuner.instrument = row.index === 0 ? 1 : 0;
        mouseClick(buttonOf(picker, row.tag));
        compare(tuner.instrument, row.index);
        compare(all(picker, InstrumentSegment).map(each => each.checked), [0, 1, 2].map(index => index === row.index));
    }
}
