// SPDX-License-Identifier: MIT
import QtQuick
import QtTest
import Corvane
import Corvane.Fakes

// The base of the screen tests: a new tuner for each test, and functions to find items.
TestCase {
    id: root

    property FakeTuner tuner
    readonly property Component tunerMaker: FakeTuner {}
    readonly property Component spyMaker: SignalSpy {}
    readonly property Probe probe: Probe {}
    readonly property int limit: 60000 // ms; generous, for busy machines

    width: 480
    height: 860
    visible: true
    when: windowShown

    // The last tuner must outlive its bindings.
    function init() {
        const old = tuner;
        tuner = tunerMaker.createObject(root);
        old?.destroy();
        mouseMove(root, root.width - 1, root.height - 1);
    }

    // The rows of a data table, named by their first cell.
    function table(columns, lines) {
        return lines.map(line => {
                const row = {
                    tag: `${line[0]}`
                };
                columns.forEach((column, i) => row[column] = line[i]);
                return row;
            });
    }

    function make(component, properties) {
        const made = createTemporaryObject(component, root, properties ?? {});
        verify(made, "the component can be made");
        settle(made);
        return made;
    }

    // A component without a tuner.
    function makePart(type, properties) {
        const component = Qt.createComponent(`qrc:/qt/qml/Corvane/${type}.qml`);
        compare(component.status, Component.Ready, component.errorString());
        return make(component, properties);
    }

    // A component with the test's tuner.
    function show(type, properties) {
        return makePart(type, Object.assign({
                    tuner: tuner
                }, properties ?? {}));
    }

    // A component with metrics, by default those of the first window size.
    function showSized(type, properties) {
        return show(type, Object.assign({
                    metrics: tuner.fit(480, 860)
                }, properties ?? {}));
    }

    // The whole window, active.
    function showWindow(textZoom) {
        const window = show("app/Main", {
                textZoom: textZoom ?? 1
            });
        window.visible = true;
        eventually(() => window.active && window.activeFocusItem);
        return window;
    }

    // Waits until positioners have placed their items, before the next frame.
    function settle(item) {
        if (!(item instanceof Item))
            return;
        for (const each of [item].concat(all(item, Item))) {
            if (isPolishScheduled(each))
                verify(waitForItemPolished(each, limit));
        }
    }

    function spy(target, signalName) {
        return createTemporaryObject(spyMaker, root, {
                target: target,
                signalName: signalName
            });
    }

    // The first arguments of the recorded signals.
    function told(spy) {
        return spy.signalArguments.map(each => each[0]);
    }

    function eventually(condition, message) {
        tryVerify(condition, limit, message ?? `${condition}`);
    }

    // Waits for another frame.
    function paint(item) {
        item.Window.window.update();
        verify(waitForRendering(item, limit));
    }

    // An A2 with this deviation, until it is the median of the last five.
    function hearCents(cents) {
        for (let i = 0; i < 5; ++i)
            tuner.hear(110 * Math.pow(2, cents / 1200));
    }

    // All descendants of a type, also hidden ones, in stacking order.
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

    function only(item, type) {
        const found = all(item, type);
        compare(found.length, 1, `there is one ${type}`);
        return found[0];
    }

    function textItems(item) {
        const isText = each => each instanceof Label || each instanceof FixedDigits;
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

    // The background of a button.
    function colorOf(button) {
        return String(all(button, ContinuousRectangle)[0].color);
    }

    // The list of an open menu, once its entries exist.
    function listOf(menu) {
        verify(menu.opened);
        settle(menu.shown);
        return menu.shown.list;
    }

    function entryOf(list, title) {
        const found = all(list, MenuEntry).filter(each => each.title === title);
        compare(found.length, 1, `there is one entry "${title}"`);
        return found[0];
    }

    // With 8 bits per channel, which is what texts keep.
    function compareColor(actual, expected) {
        const color = typeof expected === "string" ? Qt.color(expected) : expected;
        compare(String(actual), String(color));
    }

    // Compares an item's position in another, up to the rounding of the layout.
    function verifyInside(item, outer, rounding) {
        const slack = rounding ?? 0.01;
        const place = item.mapToItem(outer, 0, 0, item.width, item.height);
        verify(place.left >= -slack && place.right <= outer.width + slack, `${item} at ${place}`);
        verify(place.top >= -slack && place.bottom <= outer.height + slack, `${item} at ${place}`);
    }
}
