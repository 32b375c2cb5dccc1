import QtQuick
import Corvane

ScreenTest {
    name: "TypeScale"

    function test_titles_are_larger_than_texts_and_texts_than_captions() {
        const scale = [TypeScale.title2, TypeScale.title3, TypeScale.headline, TypeScale.body, TypeScale.caption, TypeScale.caption2];
        for (let i = 1; i < scale.length; ++i)
            verify(scale[i] < scale[i - 1], scale.join());
    }

    function test_the_smallest_can_still_be_read() {
        verify(TypeScale.caption2 >= 11, TypeScale.caption2);
        verify(TypeScale.subheadline >= TypeScale.caption2);
        verify(TypeScale.footnote >= TypeScale.caption2);
    }

    function test_names_a_font_with_round_letters() {
        verify(TypeScale.rounded !== "");
    }
}
