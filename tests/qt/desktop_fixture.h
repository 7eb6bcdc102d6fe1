#pragma once

#include "drive/form_file.h"
#include "qt/application_guard.h"
#include "qt/controls/window_control.h"
#include "qt/qt_desktop.h"
#include "qt/qt_form.h"
#include "qt/view_widget.h"
#include "support/temporary_folder.h"

#include <QFile>
#include <QTest>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>

namespace chromalog::test {

/// Runs on the toolkit's platform without a screen, unless the caller chose another.
struct Offscreen {
    Offscreen() { setenv("QT_QPA_PLATFORM", "offscreen", 0); }
};

/// A desktop of its own for every test, with a folder that stands for the person's files.
class DesktopTest : public testing::Test, Offscreen {
  protected:
    DesktopTest() { setenv("XDG_CONFIG_HOME", folder.path().c_str(), 1); }

    QtDesktopSettings settings() const {
        QtDesktopSettings s;
        s.dataDirectory = folder.path();
        s.formsDirectory = folder.path();
        s.readForm = readFormFile;
        return s;
    }

    void writeForm(const std::string& name, const std::string& text) const {
        QFile file(QString::fromStdString(folder / (name + ".ui")));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text.data(), qint64(text.size()));
    }

    /// A form with one dialog "window" around the given widgets.
    void writeDialog(const std::string& name, const std::string& widgets) const {
        writeForm(name,
                  "<ui version=\"4.0\"><widget class=\"QDialog\" name=\"window\"><property name=\"geometry\">"
                  "<rect><x>0</x><y>0</y><width>400</width><height>300</height></rect></property>" +
                      widgets + "</widget></ui>");
    }

    TemporaryFolder folder;
    ApplicationGuard application;
};

/// A view that remembers what it was sent.
class SpyView : public View {
  public:
    std::vector<std::string> calls;
    std::vector<Point> places;
    bool flipped = false, drags = false, takesColours = false, usesKeys = true;
    Accessible told{Accessible::Role::chart, "spy", "value", "a view of the tests", std::nullopt};
    std::function<void(Canvas&)> draw, drawLayer;
    DragInfo lastDrop;

    bool isFlipped() const override { return flipped; }
    void drawRect(Canvas& canvas) override {
        if (draw) draw(canvas);
    }
    void drawDisplayLayer(Canvas& canvas) override {
        if (drawLayer) drawLayer(canvas);
    }
    void sizeChanged() override { calls.push_back("size"); }
    void mouseDown(const MouseEvent& e) override { note("down", e.location); }
    void mouseDragged(const MouseEvent& e) override { note("dragged", e.location); }
    void mouseUp(const MouseEvent& e) override { note("up", e.location); }
    void rightMouseDown(const MouseEvent& e) override { note("right", e.location); }
    bool startsDrags() const override { return drags; }
    bool acceptsFocus() const override { return true; }
    bool keyDown(const KeyEvent& e) override {
        calls.push_back("key " + std::to_string(int(e.key)) + (e.shift ? " shift" : "") +
                        (e.alt ? " alt" : ""));
        return usesKeys;
    }
    bool acceptsColourDrags() const override { return takesColours; }
    DragOperation draggingEntered(const DragInfo& info) override {
        return info.pasteboard.colourType ? DragOperation::copy : DragOperation::none;
    }
    bool performDragOperation(const DragInfo& info) override {
        lastDrop = info;
        return true;
    }
    std::string help; ///< left of the middle
    std::string helpAt(Point p) const override { return p.x < bounds().w / 2 ? help : ""; }
    Accessible accessible() const override { return told; }

  private:
    void note(const char* what, Point at) {
        calls.push_back(what);
        places.push_back(at);
    }
};

} // namespace chromalog::test
