#pragma once

#include "dialog/pick_fixture.h"

#include <gmock/gmock.h>

namespace chromalog::test {

/// One pick whose lists a test fills, with a floating panel of the menu Tools.
class TwoLists : public PickTest {
  protected:
    using Step = std::function<void()>;
    void dialog(const Step& step) {
        pick([&](ChromalogControler& c, HeadlessDesktop& d) {
            controler = &c;
            desktop = &d;
            step();
        });
    }
    SwatchPanel& panel(int list) { return list == 1 ? controler->panels().one : controler->panels().two; }
    /// Greys of those bytes, named by them.
    void add(int list, const std::vector<int>& greys) {
        std::vector<AddedColour> added;
        for (const int grey : greys)
            added.push_back({Colour::rgb(grey / 255.0, grey / 255.0, grey / 255.0), std::to_string(grey)});
        controler->panels().add(panel(list), added, "!Test!");
    }
    std::vector<std::string> names(int list) {
        std::vector<std::string> all;
        for (const FCOStruct& record : panel(list).view.shownRecords())
            all.emplace_back(nameBytes(record));
        return all;
    }
    void select(int list, int row) { panel(list).view.setSelectedColor(static_cast<std::int16_t>(row)); }
    void send(const std::string& action, const std::string& form = "chromalogWindow") {
        desktop->forms.at(form)->send(action);
    }
    template <typename T> T& outlet(const std::string& form, const std::string& name) {
        return desktop->forms.at(form)->outlet<T>(name);
    }
    View& view(const std::string& form, const std::string& name) {
        return *desktop->forms.at(form)->views.at(name);
    }
    /// Each as "name | place | difference" and the like.
    std::vector<std::string> lines(View& of) {
        std::vector<std::string> all;
        for (int row = 0; row < of.accessibleRowCount(); ++row) {
            const AccessibleRow line = of.accessibleRow(row);
            all.push_back(line.name + " | " + line.value.substr(0, line.value.find(", RGB")));
        }
        return all;
    }
    static void press(View& view, int row, bool second = false, bool control = false) {
        MouseEvent event;
        event.location = {60, 22.0 * row + 13};
        event.second = second;
        event.control = control;
        view.mouseDown(event);
    }
    static void type(View& view, Key key, bool shift = false) {
        KeyEvent event;
        event.key = key;
        event.shift = shift;
        view.keyDown(event);
    }

    ChromalogControler* controler = nullptr;
    HeadlessDesktop* desktop = nullptr;
};

} // namespace chromalog::test
