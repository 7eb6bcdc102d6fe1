// Every text is read on its ground as it is painted, in every state, on light and dark desktops: 4.5 : 1 at
// least.
#include "qt/dialog_fixture.h"

#include "qt/contrast.h"
#include "qt/controls/dimmed.h"
#include "qt/controls/fit_button.h"
#include "qt/controls/two_way_switch.h"

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QStyle>
#include <QStyleFactory>

#include <algorithm>
#include <array>
#include <map>

using namespace chromalog;
using namespace chromalog::test;

namespace {

constexpr double kLeast = 4.5;

struct Desktop {
    const char* name;
    QColor window, text, button, base, accent, onAccent;
};

/// The toolkit's own light one, and the two of the documentation's pictures.
const std::array<Desktop, 3>& desktops() {
    static const std::array<Desktop, 3> all = {
        {{"plain", 0xefefef, Qt::black, 0xefefef, Qt::white, 0x308cc6, Qt::white},
         {"light", 0xe2e2e2, 0x1c1c1c, 0xeeeeee, 0xf6f6f6, 0x2b6cb0, Qt::white},
         {"dark", 0x323232, 0xe4e4e4, 0x404040, 0x262626, 0x5b9bd8, 0x101010}}};
    return all;
}

QPalette paletteOf(const Desktop& d) {
    QPalette palette(d.button, d.window);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(role, d.text);
    const int faint = (2 * d.window.red() + d.text.red()) / 3;
    palette.setColor(QPalette::Disabled, QPalette::WindowText, QColor(faint, faint, faint));
    palette.setColor(QPalette::Base, d.base);
    palette.setColor(QPalette::PlaceholderText, QColor(d.text.red(), d.text.green(), d.text.blue(), 128));
    palette.setColor(QPalette::Highlight, d.accent);
    palette.setColor(QPalette::HighlightedText, d.onAccent);
    return palette;
}

/// Of the commonest colour of a picture, its ground, to the one that stands out most: at this size strokes
/// have pixels in the text's whole colour.
double contrastIn(const QImage& picture) {
    std::map<QRgb, int> counts;
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x)
            ++counts[picture.pixel(x, y)];
    if (counts.empty()) return 1;
    const auto fewer = [](const auto& a, const auto& b) { return a.second < b.second; };
    const QColor ground(std::max_element(counts.begin(), counts.end(), fewer)->first);
    double most = 1;
    for (const auto& [colour, count] : counts)
        most = std::max(most, contrast(ground, QColor(colour)));
    return most;
}

class TextContrast : public testing::WithParamInterface<const char*>, public WholeDialogTest {
  protected:
    const QFont font = QApplication::font();
    const QPalette before = QApplication::palette();

    void SetUp() override {
        QStyle* style = QStyleFactory::create(GetParam());
        if (!style) GTEST_SKIP() << "the style " << GetParam() << " is not installed";
        QApplication::setStyle(style);
        QFont large = font;
        large.setPointSize(20);
        QApplication::setFont(large);
        makeDialog();
        window().resize(1920, 1080);
        window().show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window())); // some styles fade what is inactive
    }
    void TearDown() override {
        QApplication::setFont(font);
        QApplication::setPalette(before);
    }
    QWidget& window() { return *desktop.widget("chromalogWindow"); }

    /// Takes a widget's frame off.
    static QRect inner(const QWidget& widget) { return widget.rect().adjusted(6, 4, -6, -4); }
    void expectReadable(QWidget& widget, const QRect& part, const std::string& state) {
        const QRect place(widget.mapTo(&window(), part.topLeft()), part.size());
        const QImage shown = window().grab(place).toImage().convertToFormat(QImage::Format_RGB32);
        EXPECT_GE(contrastIn(shown), kLeast) << widget.objectName().toStdString() << ' ' << state;
    }
    void expectButton(QAbstractButton& button, const std::string& where) {
        expectReadable(button, inner(button), where);
        button.setDown(true);
        expectReadable(button, inner(button), where + ", pressed");
        button.setDown(false);
        button.setAttribute(Qt::WA_UnderMouse);
        expectReadable(button, inner(button), where + ", under the pointer");
        button.setAttribute(Qt::WA_UnderMouse, false);
        if (!button.isCheckable()) return;
        button.setChecked(true);
        expectReadable(button, inner(button).adjusted(0, 0, 0, -2), where + ", on");
        button.setChecked(false);
    }
    void expectField(QLineEdit& field, const std::string& where) {
        const QString text = field.text();
        field.setText("88");
        expectReadable(field, inner(field), where);
        field.setFocus();
        field.selectAll();
        expectReadable(field, inner(field), where + ", selected");
        field.clearFocus();
        field.clear();
        if (!field.placeholderText().isEmpty()) expectReadable(field, inner(field), where + ", empty");
        field.setText(text);
    }
    void expectSwitch(TwoWaySwitch& both, const std::string& where) {
        QRect left = inner(both), right = left;
        left.setWidth(both.width() / 3);
        right.setLeft(both.width() * 2 / 3);
        for (const bool second : {false, true}) {
            both.setChecked(second);
            expectReadable(both, left, where + ", first");
            expectReadable(both, right, where + ", second");
        }
        both.setChecked(false);
    }
    void expectLabel(QLabel& label, const std::string& where) {
        if (label.text().trimmed().isEmpty()) return;
        expectReadable(label, label.rect(), where);
        if (!label.objectName().startsWith("near")) return; // the one readout that can be out of date
        if (where.ends_with("Grey")) return;                // black itself has 5.3 : 1 there
        setDimmed(label, true);
        expectReadable(label, label.rect(), where + ", dimmed");
        setDimmed(label, false);
    }
    void expectMenu(QMenu& menu, const std::string& where) {
        menu.popup(QPoint());
        for (QAction* item : menu.actions()) {
            const bool ofNoUse = !item->isEnabled(); // greyed by the style itself
            if (item->isSeparator() || ofNoUse) continue;
            menu.setActiveAction(item);
            const QImage shown = menu.grab(menu.actionGeometry(item).adjusted(6, 4, -6, -4)).toImage();

            EXPECT_GE(contrastIn(shown), kLeast) << item->text().toStdString() << ' ' << where;
        }
        menu.close();
    }
    void expectAll(const std::string& where) {
        for (QWidget* widget : window().findChildren<QWidget*>()) {
            const bool greyed = !widget->isEnabled() && !qobject_cast<QLabel*>(widget); // of no use for now
            if (!widget->isVisible() || greyed || widget->width() < 14) continue;
            if (auto* both = qobject_cast<TwoWaySwitch*>(widget))
                expectSwitch(*both, where);
            else if (auto* button = qobject_cast<QPushButton*>(widget))
                expectButton(*button, where);
            else if (auto* field = qobject_cast<QLineEdit*>(widget))
                expectField(*field, where);
            else if (auto* label = qobject_cast<QLabel*>(widget))
                expectLabel(*label, where);
        }
    }
    void expectAllOn(const QPalette& desktop, const std::string& name) {
        QApplication::setPalette(desktop);
        QCoreApplication::sendPostedEvents();
        for (const char* ground :
             {"itemSurroundDesktop", "itemSurroundLight", "itemSurroundGrey", "itemSurroundDark"}) {
            window().findChild<QAction*>(ground)->trigger();
            expectAll(name + ", " + ground);
        }
        for (auto* menu : window().findChildren<QMenu*>())
            expectMenu(*menu, name);
    }
};

TEST_P(TextContrast, EveryTextIsReadInEveryState) {
    if (std::string(GetParam()) != "Fusion") // has colours of its own, and heeds no others
        return expectAllOn(QApplication::style()->standardPalette(), "its own");
    for (const Desktop& d : desktops())
        expectAllOn(paletteOf(d), d.name);
}

INSTANTIATE_TEST_SUITE_P(Styles, TextContrast, testing::Values("Fusion", "Adwaita", "Adwaita-Dark"),
                         [](const auto& info) {
                             std::string name = info.param;
                             std::erase(name, '-');
                             return name;
                         });

} // namespace
