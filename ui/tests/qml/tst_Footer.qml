import QtQuick
import Corvane

ScreenTest {
    id: test

    name: "Footer"

    Component {
        id: subject

        Footer {
            property real area: 860

            tuner: test.tuner
            metrics: test.tuner.fit(480, area)
        }
    }

    function test_holds_the_version_and_the_link() {
        const footer = make(subject);
        compare(texts(footer), ["Version " + tuner.appVersion, "Privacy Policy"]);
        compare(footer.spacing, 10);
        for (const label of textItems(footer)) {
            compareColor(label.color, TunerTheme.muted);
            compare(label.font.pixelSize, TypeScale.caption2);
        }
    }

    function test_shows_the_version_above_a_height_of_720() {
        compare(texts(make(subject, {
                        area: 720
                    })), ["Privacy Policy"]);
        compare(texts(make(subject, {
                        area: 721
                    })).length, 2);
    }

    function test_the_link_opens_the_privacy_policy() {
        const link = buttonOf(make(subject), "Privacy Policy");
        compare(link.Accessible.role, Accessible.Link);
        mouseClick(link);
        compare(tuner.opened.length, 1);
        verify(tuner.opened[0].includes(":"), tuner.opened[0]);
    }

    function test_the_link_works_from_the_keyboard() {
        const link = buttonOf(make(subject), "Privacy Policy");
        link.forceActiveFocus(Qt.TabFocusReason);
        keyClick(Qt.Key_Space);
        compare(tuner.opened.length, 1);
    }
}
