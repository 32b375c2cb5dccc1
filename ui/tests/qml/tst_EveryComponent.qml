import QtQuick

// The list comes from the build: what is forgotten there, or cannot be loaded, fails here.
ScreenTest {
    name: "EveryComponent"

    function test_can_be_loaded_data() {
        return componentsOfTheModule.map(component => ({
                    tag: component
                }));
    }

    function test_can_be_loaded(row) {
        const component = Qt.createComponent(`qrc:/qt/qml/Corvane/${row.tag}.qml`);
        compare(component.status, Component.Ready, component.errorString());
    }

    function test_there_are_components() {
        verify(componentsOfTheModule.includes("TunerView"));
    }
}
