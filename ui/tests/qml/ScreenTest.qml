import QtQuick
import QtTest
import Corvane
import Corvane.Fakes

// What the tests of the components share: a fresh tuner each, and ways to find what is on the screen.
TestCase {
    id: root

    property FakeTuner tuner
    readonly property Component tunerMaker: FakeTuner {}
    readonly property var smallest: Qt.size(420, 680)
    readonly property var ideal: Qt.size(480, 860)
    readonly property var large: Qt.size(700, 1000)

    width: 480
    height: 860
    visible: true
    when: windowShown

    // The tuner of the last test outlives what was bound to it.
    function init() {
        const old = tuner;
        tuner = tunerMaker.createObject(root);
        old?.destroy();
        mouseMove(root, root.width - 1, root.height - 1);
    }

    function make(component, properties) {
        const made = createTemporaryObject(component, root, properties ?? {});
        verify(made, "the component can be made");
        settle(made);
        return made;
    }

    // Until rows and columns have placed what stands in them, which they do before the next frame.
    function settle(item) {
        if (!(item instanceof Item))
            return;
        for (const each of [item].concat(all(item, Item))) {
            if (isPolishScheduled(each))
                verify(waitForItemPolished(each));
        }
    }

    function fitOf(size) {
        return tuner.fit(size.width, size.height);
    }

    // All items of a type below an item, also hidden ones, in the order in which they are stacked.
    function all(item, type) {
        let found = [];
        for (let i = 0; i < item.children.length; ++i) {
            const child = item.children[i];
            if (child instanceof type)
                found.push(child);
            found = found.concat(all(child, type));
        }
        return found;
    }

    function isText(item) {
        return item instanceof Label || item instanceof FixedDigits;
    }

    function textItems(item) {
        return all(item, Item).filter(each => each.visible && isText(each));
    }

    function texts(item) {
        return textItems(item).map(each => each.text);
    }

    function textItem(item, text) {
        const found = textItems(item).filter(each => each.text === text);
        compare(found.length, 1, `"${text}" stands once among "${texts(item).join('", "')}"`);
        return found[0];
    }

    function buttonOf(item, name) {
        const found = all(item, PlainButton).filter(each => each.Accessible.name === name);
        compare(found.length, 1, `there is one button "${name}"`);
        return found[0];
    }

    function menuOf(item) {
        const found = all(item, PullDownMenu);
        compare(found.length, 1, "the item has a menu");
        return found[0];
    }

    function open(menu) {
        menu.open();
        return listOf(menu);
    }

    // Of an open menu, once its entries are there.
    function listOf(menu) {
        verify(menu.opened);
        settle(menu.shown);
        return menu.shown.list;
    }

    // What a button stands on.
    function groundOf(button) {
        return all(button, ContinuousRectangle)[0];
    }

    function entryOf(list, title) {
        const found = all(list, MenuEntry).filter(each => each.title === title);
        compare(found.length, 1, `there is one entry "${title}"`);
        return found[0];
    }

    // Headings and entries of a menu from top to bottom.
    function menuTexts(list) {
        const labels = textItems(list.contentItem);
        labels.sort((one, other) => one.mapToItem(list, 0, 0).y - other.mapToItem(list, 0, 0).y);
        return labels.map(each => each.text);
    }

    // In 8 bits a channel: texts keep no more.
    function compareColor(actual, expected) {
        compare(String(actual), String(typeof expected === "string" ? Qt.color(expected) : expected));
    }

    function faded(color, opacity) {
        return Qt.rgba(color.r, color.g, color.b, opacity);
    }

    function white(opacity) {
        return Qt.rgba(1, 1, 1, opacity);
    }

    // Inside another item, up to what the rounding of the layout may move it.
    function verifyInside(item, outer) {
        const place = item.mapToItem(outer, 0, 0, item.width, item.height);
        verify(place.x >= -0.01 && place.y >= -0.01, `${item} starts inside, at ${place.x}, ${place.y}`);
        verify(place.x + place.width <= outer.width + 0.01, `${item} ends at ${place.x + place.width}`);
        verify(place.y + place.height <= outer.height + 0.01, `${item} ends at ${place.y + place.height}`);
    }

    function verifyBelow(lower, upper) {
        const end = upper.mapToItem(root, 0, upper.height).y;
        const start = lower.mapToItem(root, 0, 0).y;
        verify(start >= end - 0.01, `${lower} starts at ${start}, below ${end}`);
    }
}
