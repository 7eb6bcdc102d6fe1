// The dialog under the keyboard alone.
#include "qt/keyboard_fixture.h"

#include "qt/controls/number_steps.h"
#include "qt/shortcuts.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QAction>
#include <QClipboard>
#include <QDialog>
#include <QFileDialog>
#include <QHelpEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPlainTextEdit>
#include <QScrollArea>
#include <QScrollBar>
#include <QShortcut>
#include <QToolTip>
#include <QWheelEvent>

#include <map>
#include <set>

using namespace chromalog;
using namespace chromalog::test;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

namespace {

TEST_F(KeyboardTest, UpAndDownStepANumberWithinItsRange) {
    auto& red = find<QLineEdit>("firstR");
    red.setFocus();
    const auto after = [&](int key, Qt::KeyboardModifiers held = Qt::NoModifier) {
        strike(key, held);
        return red.text().toStdString();
    };
    EXPECT_EQ(red.text(), "229");
    EXPECT_EQ(after(Qt::Key_Up), "230");
    EXPECT_EQ(find<QWidget>("okButton").property("rgba").toList()[0].toDouble(), 230 / 255.0)
        << "a step is an edit: everything follows";
    EXPECT_EQ(after(Qt::Key_Up, Qt::ShiftModifier), "240");
    EXPECT_EQ(after(Qt::Key_Up, Qt::ShiftModifier), "250");
    EXPECT_EQ(after(Qt::Key_Up, Qt::ShiftModifier), "255");
    EXPECT_EQ(after(Qt::Key_Up), "255");
    EXPECT_EQ(after(Qt::Key_Down), "254");
    red.selectAll();
    QTest::keyClicks(&red, "7");
    EXPECT_EQ(after(Qt::Key_Down, Qt::ShiftModifier), "0");
    EXPECT_EQ(after(Qt::Key_Down), "0");
    red.selectAll();
    QTest::keyClicks(&red, "none");
    EXPECT_EQ(after(Qt::Key_Up), "1") << "what is no number counts as 0";
    red.selectAll();
    QTest::keyClicks(&red, "99999999999999999999");
    EXPECT_EQ(after(Qt::Key_Down), "255");
    find<QLineEdit>("firstC").setFocus();
    for (int i = 0; i < 20; ++i)
        strike(Qt::Key_Up, Qt::ShiftModifier);
    EXPECT_EQ(find<QLineEdit>("firstC").text(), "100") << "percent";
}

TEST_F(KeyboardTest, EveryNumberFieldSteps) {
    for (const char* colour : {"first", "second"})
        for (const char letter : std::string("RGBCMYK")) {
            const std::string name = std::string(colour) + letter;
            const int most = std::string("RGB").find(letter) != std::string::npos ? 255 : 100;
            EXPECT_EQ(widget(name.c_str()).property(kMost).toInt(), most) << name;
        }
}

TEST_F(KeyboardTest, TheWheelStepsTheFocusedFieldAlone) {
    auto& red = find<QLineEdit>("firstR");
    auto& green = find<QLineEdit>("firstG");
    red.setFocus();
    const auto turn = [&](QLineEdit& field, int eighths, Qt::KeyboardModifiers held = Qt::NoModifier) {
        const QPoint at = field.rect().center();
        QWheelEvent event(at, field.mapToGlobal(at), {}, {0, eighths}, Qt::NoButton, held, Qt::NoScrollPhase,
                          false);
        QApplication::sendEvent(&field, &event);
        return field.text().toStdString();
    };
    const std::string before = green.text().toStdString();
    EXPECT_EQ(turn(green, 120), before);
    EXPECT_EQ(turn(red, -120), "228");
    EXPECT_EQ(turn(red, 240), "230");
    EXPECT_EQ(turn(red, 60), "230") << "half a notch";
    EXPECT_EQ(turn(red, 60), "231");
    EXPECT_EQ(turn(red, -120, Qt::ShiftModifier), "221");
}

TEST_F(KeyboardTest, AStepIsUndoneInTheField) {
    auto& red = find<QLineEdit>("firstR");
    red.setFocus();
    strike(Qt::Key_Up);
    EXPECT_EQ(red.text(), "230");
    strike(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(red.text(), "229");
}

TEST_F(KeyboardTest, ReturnOnARowUsesItAsFirstColourAndPressesNothing) {
    int oks = 0;
    QObject::connect(&find<QAbstractButton>("okButton"), &QAbstractButton::clicked, [&] { ++oks; });
    widget("swatch1").setFocus();
    controler->panels().one.view.setSelectedColor(1);
    strike(Qt::Key_Return);
    EXPECT_EQ(controler->colours().getFirstColor().red(), 20000 / 65535.0F);
    EXPECT_EQ(find<QLineEdit>("colorName").text(), "b&");
    widget("swatch2").setFocus();
    controler->panels().two.view.setSelectedColor(2);
    strike(Qt::Key_Enter);
    EXPECT_EQ(controler->colours().getFirstColor().red(), 30000 / 65535.0F);
    EXPECT_EQ(oks, 0);
    EXPECT_FALSE(find<QAbstractButton>("undoButton").isEnabled()) << "no list has changed";
}

TEST_F(KeyboardTest, AltWithAnArrowMovesARowAndOneUndoBringsItBack) {
    SwatchPanel& one = controler->panels().one;
    widget("swatch1").setFocus();
    one.view.setSelectedColor(0);
    strike(Qt::Key_Down, Qt::AltModifier);
    strike(Qt::Key_Down, Qt::AltModifier);
    EXPECT_EQ(letters(one), "bcade");
    strike(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(letters(one), "bacde");
    strike(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(letters(one), "abcde");
    strike(Qt::Key_Y, Qt::ControlModifier);
    EXPECT_EQ(letters(one), "bacde");
}

TEST_F(KeyboardTest, UndoIsTheFieldsWhileItIsTypedInAndElseTheLists) {
    SwatchPanel& two = controler->panels().two;
    widget("swatch2").setFocus();
    strike(Qt::Key_Delete);
    EXPECT_EQ(letters(two), "bc");
    auto& red = find<QLineEdit>("firstR");
    red.setFocus();
    red.selectAll();
    QTest::keyClicks(&red, "7");
    strike(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(red.text(), "229");
    strike(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(letters(two), "bc") << "also where the field has nothing left to undo";
    strike(Qt::Key_Return); // ends the typing
    strike(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(letters(two), "abc");
    strike(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(letters(two), "bc");
    EXPECT_EQ(red.text(), "229");
}

TEST_F(KeyboardTest, FindAndSaveMeanTheListUsedLast) {
    const auto findsIn = [&] {
        strike(Qt::Key_F, Qt::ControlModifier);
        return focus();
    };
    EXPECT_EQ(findsIn(), "findColor1");
    widget("swatch2").setFocus();
    widget("firstR").setFocus();
    EXPECT_EQ(findsIn(), "findColor2");
    widget("sortHue1").setFocus();
    widget("chromaView").setFocus();
    EXPECT_EQ(findsIn(), "findColor1");
    int saved1 = 0, saved2 = 0;
    // In place of the panels that the buttons would open.
    for (auto [name, count] : {std::pair("saveSwatch1", &saved1), std::pair("saveSwatch2", &saved2)}) {
        auto& button = find<QAbstractButton>(name);
        button.disconnect(SIGNAL(clicked(bool)));
        QObject::connect(&button, &QAbstractButton::clicked, [count = count] { ++*count; });
    }
    strike(Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(saved1, 1);
    strike(Qt::Key_2, Qt::AltModifier);
    EXPECT_EQ(focus(), "swatch2");
    strike(Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(saved2, 1);
    strike(Qt::Key_1, Qt::AltModifier);
    EXPECT_EQ(focus(), "swatch1");
}

/// What stands behind the "&" of every text that the button may show.
std::set<QChar> mnemonicsOf(const QAbstractButton& button) {
    std::set<QChar> letters;
    const QString texts =
        button.property("texts").isValid() ? button.property("texts").toString() : button.text();
    for (const QString& text : texts.split('|'))
        letters.insert(text.contains('&') ? text[text.indexOf('&') + 1].toUpper() : QChar());
    return letters;
}

TEST_F(KeyboardTest, NoTwoControlsHaveTheSameKey) {
    std::map<QString, QString> owners; // of keys
    const auto claim = [&](const QString& keys, const QString& owner) {
        EXPECT_TRUE(owners.emplace(keys, owner).second)
            << keys.toStdString() << ": " << owner.toStdString() << " and " << owners[keys].toStdString();
    };
    for (const auto* key : window().findChildren<QShortcut*>())
        claim(key->key().toString(), "the dialog");
    int mnemonics = 0;
    for (const auto* button : window().findChildren<QAbstractButton*>()) {
        const auto letters = mnemonicsOf(*button);
        EXPECT_EQ(letters.size(), 1U)
            << button->objectName().toStdString() << ": one letter in all its texts";
        if (button->shortcut().isEmpty()) continue;
        ++mnemonics;
        claim(button->shortcut().toString(), button->objectName());
        EXPECT_EQ(button->shortcut().toString(), "Alt+" + QString(*letters.begin()));
    }
    EXPECT_GE(mnemonics, 15);
    for (const char* keys : {"Ctrl+Z", "Ctrl+Shift+Z", "Ctrl+F", "Ctrl+S", "F1"})
        EXPECT_TRUE(owners.count(keys)) << keys;
}

TEST_F(KeyboardTest, AMnemonicPressesItsButton) {
    for (const auto& [key, name] :
         {std::pair(Qt::Key_T, "toneOrDegrade"), std::pair(Qt::Key_A, "absOrRel")}) {
        if (!widget(name).isVisible()) continue;
        const bool before = find<QAbstractButton>(name).isChecked();
        strike(key, Qt::AltModifier);
        QTest::qWait(200); // the press is shown
        EXPECT_NE(find<QAbstractButton>(name).isChecked(), before) << name;
    }
    strike(Qt::Key_P, Qt::AltModifier);
    QTest::qWait(200);
    EXPECT_EQ(controler->colours().getHarmonyMode(), 1);
}

/// The panel of pictures with one, over the dialog.
class PanelKeyboardTest : public KeyboardTest {
  protected:
    void SetUp() override {
        KeyboardTest::SetUp();
        find<QAbstractButton>("choosePicture").click();
        desktop.panels().current()->reject(); // there is no picture yet: it asks for one
        QImage image(4, 4, QImage::Format_RGB32);
        image.fill(Qt::red);
        QGuiApplication::clipboard()->setImage(image);
        find<QAbstractButton>("pastePicture").click();
        ASSERT_TRUE(QTest::qWaitFor([&] { return widget("pictureToList1").isEnabled(); }));
        find<QAbstractButton>("pictureToList1").click(); // a change to undo
    }
    ~PanelKeyboardTest() override { QGuiApplication::clipboard()->clear(); }
    void activate(const char* outlet) const {
        widget(outlet).activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&widget(outlet)));
    }
    /// How often a key, struck twice, presses the button: of two owners of a key, each gets every second one.
    int presses(const char* button, const char* window, int key, Qt::KeyboardModifiers held) {
        int count = 0;
        const QObject watch;
        QObject::connect(&find<QAbstractButton>(button), &QAbstractButton::pressed, &watch, [&] { ++count; });
        for (int i = 0; i < 2; ++i) {
            activate(window);
            QTest::keyClick(widget(window).windowHandle(), Qt::Key(key), held);
            QTest::qWait(200); // the press is shown
            if (auto* file = desktop.panels().current()) file->reject();
        }
        return count;
    }
};

TEST_F(PanelKeyboardTest, APanelsLettersPressItsOwnButtons) {
    for (const auto& [button, key] :
         {std::pair("openPicture", Qt::Key_O), std::pair("takePictureColors", Qt::Key_T),
          std::pair("pictureToList1", Qt::Key_1), std::pair("pictureToList2", Qt::Key_2)})
        EXPECT_EQ(presses(button, "pictureWindow", key, Qt::AltModifier), 2) << button;
    EXPECT_EQ(presses("triComplementOn", "chromalogWindow", Qt::Key_O, Qt::AltModifier), 2)
        << "the dialog's own";
    EXPECT_EQ(presses("harmoniquesOn", "pictureWindow", Qt::Key_H, Qt::AltModifier), 2)
        << "the panel has none";
}

TEST_F(PanelKeyboardTest, FromAPanelUndoWorksAndTheListsAreLeftAlone) {
    EXPECT_EQ(presses("undoButton", "pictureWindow", Qt::Key_Z, Qt::ControlModifier), 1) << "no more to undo";
    for (const auto& [button, key] :
         {std::pair("loadSwatch1", Qt::Key_O), std::pair("saveSwatch1", Qt::Key_S)}) {
        EXPECT_EQ(presses(button, "pictureWindow", key, Qt::ControlModifier), 0) << button;
        EXPECT_EQ(presses(button, "chromalogWindow", key, Qt::ControlModifier), 2) << button;
    }
}

TEST_F(KeyboardTest, AToolTipNamesTheKeys) {
    const auto tipOf = [&](const char* name) {
        QWidget& shown = widget(name);
        const QPoint at = shown.rect().center();
        QHelpEvent event(QEvent::ToolTip, at, shown.mapToGlobal(at));
        QApplication::sendEvent(&shown, &event);
        return QToolTip::text().toStdString();
    };
    EXPECT_THAT(tipOf("saveSwatch2"), testing::EndsWith(" (Ctrl+S)"));
    EXPECT_THAT(tipOf("undoButton"), testing::EndsWith(" (Ctrl+Z, Alt+U)"));
    EXPECT_THAT(tipOf("redoButton"), testing::EndsWith(" (Ctrl+Shift+Z, Ctrl+Y, Alt+R)"));
    EXPECT_THAT(tipOf("findColor1"), testing::EndsWith(" (Ctrl+F)"));
    EXPECT_EQ(tipOf("sortAlpha1"), widget("sortAlpha1").toolTip().toStdString()) << "has no key";
}

std::string textsOf(const QWidget& sheet) {
    std::string all;
    for (const QLabel* label : sheet.findChildren<QLabel*>())
        all += label->text().toStdString() + "\n";
    return all;
}

TEST_F(KeyboardTest, F1ShowsOneSheetOfAllKeys) {
    strike(Qt::Key_F1);
    auto* sheet = window().findChild<QDialog*>("shortcutSheet");
    ASSERT_NE(sheet, nullptr);
    EXPECT_TRUE(sheet->isVisible());
    const std::string said = textsOf(*sheet);
    for (const Shortcut& shortcut : shortcuts()) {
        EXPECT_THAT(said, HasSubstr(std::string(shortcut.keys) + "\n"));
        EXPECT_THAT(said, HasSubstr(shortcut.says));
    }
    EXPECT_THAT(said, HasSubstr("Colors are sRGB, shown unmanaged."));
    EXPECT_THAT(said, HasSubstr("Alt+Up, Alt+Down"));
    const auto* scroll = sheet->findChild<QScrollArea*>();
    EXPECT_LE(scroll->widget()->width(), scroll->viewport()->width()) << "no line is cut";
    QTest::keyClick(sheet, Qt::Key_Escape);
    EXPECT_FALSE(sheet->isVisible());
    EXPECT_TRUE(window().isVisible()) << "Escape closes the sheet alone";
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    for (QAction* item : window().findChild<QMenu*>("viewMenu")->actions())
        if (item->objectName() == "itemShortcuts") item->trigger();
    EXPECT_EQ(window().findChildren<QDialog*>("shortcutSheet").size(), 1);
}

TEST_F(KeyboardTest, TheToolsMenuTellsOfTheProduct) {
    const auto ask = [&] { window().findChild<QAction*>("itemAbout")->trigger(); };
    ask();
    auto* sheet = window().findChild<QDialog*>("aboutSheet");
    ASSERT_NE(sheet, nullptr);
    EXPECT_EQ(sheet->windowTitle(), "About Chromalog");
    EXPECT_EQ(sheet->windowModality(), Qt::WindowModal);
    EXPECT_THAT(textsOf(*sheet), HasSubstr("Chromalog " CHROMALOG_VERSION "\n"));
    EXPECT_THAT(textsOf(*sheet), HasSubstr("Colors are sRGB, shown unmanaged."));
    auto* notices = sheet->findChild<QPlainTextEdit*>();
    EXPECT_EQ(sheet->focusWidget(), notices) << "keys scroll it";
    for (const char* name : {"Qt", "Little CMS", "Expat", "JSON for Modern C++", "CLI11"})
        EXPECT_THAT(notices->toPlainText().toStdString(), HasSubstr(std::string(name) + ": Copyright"));
    EXPECT_EQ(QAccessible::queryAccessibleInterface(notices)->text(QAccessible::Name), "Third-party notices");
    ask();
    EXPECT_EQ(window().findChildren<QDialog*>("aboutSheet").size(), 1);
    QTest::keyClick(notices, Qt::Key_Escape);
    EXPECT_FALSE(sheet->isVisible());
    EXPECT_TRUE(window().isVisible()) << "Escape closes the sheet alone";
}

/// What the section of a control is called, by the nearest box with a name.
std::string groupOf(const QWidget* control) {
    for (; control; control = control->parentWidget())
        if (control->objectName().startsWith("box") && !control->accessibleName().isEmpty())
            return control->objectName().toStdString();
    return "the dialog";
}

TEST_F(KeyboardTest, TabWalksEveryControlInReadingOrderGroupByGroup) {
    for (const char* name : {"undoButton", "redoButton", "seachStep1", "seachStep2"})
        widget(name).setEnabled(true);
    widget("firstR").setFocus();
    std::vector<QWidget*> walked;
    do {
        walked.push_back(window().focusWidget());
        strike(Qt::Key_Tab);
    } while (focus() != "firstR" && walked.size() < 200);
    for (QWidget* control : window().findChildren<QWidget*>())
        if (control->isVisible() && control->isEnabled() && (control->focusPolicy() & Qt::TabFocus)) {
            EXPECT_THAT(walked, testing::Contains(control)) << control->objectName().toStdString();
        }
    const auto place = [&](QWidget* control) { return control->mapTo(&window(), QPoint()); };
    for (std::size_t i = 1; i < walked.size(); ++i) {
        QWidget *before = walked[i - 1], *now = walked[i];
        if (groupOf(before) != groupOf(now)) continue;
        const QPoint a = place(before), b = place(now);
        const bool below = b.y() >= a.y() + before->height() || b.x() >= a.x() + before->width();
        EXPECT_TRUE(below) << before->objectName().toStdString() << " -> " << now->objectName().toStdString();
    }
    strike(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(focus(), walked.back()->objectName().toStdString());
}

TEST_F(KeyboardTest, AnAmpersandInANameShowsAsOne) {
    for (const char* name : {"nearName", "swatch1Name"}) {
        auto& label = find<QLabel>(name);
        const auto picture = [&](const char* text) {
            label.setText(text);
            return label.grab().toImage();
        };
        EXPECT_NE(picture("a&b"), picture("ab")) << name;
        EXPECT_NE(picture("a&b"), picture("a&&b")) << name;
    }
}

} // namespace
