// The windows in other languages, and from right to left in one that the tests alone have.
#include "qt/dialog_fixture.h"

#include "base/translated.h"
#include "qt/convert.h"
#include "qt/item_menu.h"
#include "qt/language/language_table.h"
#include "qt/shortcut_sheet.h"

#include <QAccessible>
#include <QAction>
#include <QComboBox>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>
#include <QRegularExpression>
#include <QTimer>

using namespace chromalog;
using namespace chromalog::test;
using testing::IsEmpty;

namespace {

constexpr const char* kForms[] = {"chromalogWindow", "ComparePanel", "ContrastPanel", "CustomAngle",
                                  "EarlierLists",    "ExportPanel",  "ImportPanel",   "LibraryPanel",
                                  "NearestPanel",    "PicturePanel", "ProtocolPanel", "SwatchPrintOptions"};

class Languages : public DesktopTest {
  protected:
    QtDesktop& speak(const char* language, bool ownApplication = true) {
        QtDesktopSettings s = settings();
        s.language = language;
        s.ownApplication = ownApplication;
        return desktop_.emplace(s);
    }
    ChromalogControler& makeDialog() {
        record_->pickerRecord = &picker_;
        return controler_.emplace(*record_, *desktop_);
    }
    QWidget& window() { return *desktop_->widget("chromalogWindow"); }
    static void fill(SwatchPanel& panel) {
        panel.records[0].Namen[0] = 1;
        panel.records[0].Namen[1] = 'a';
        panel.view.setNumberOfColors(1);
        panel.storedCount = 1;
        panel.redisplay();
    }
    void end() {
        controler_.reset();
        desktop_.reset();
    }

  private:
    std::unique_ptr<GlobalRecord> record_ = std::make_unique<GlobalRecord>();
    PickerRecord picker_{};
    std::optional<QtDesktop> desktop_;
    std::optional<ChromalogControler> controler_;
};

/// What of a text stands outside brackets and is neither a name of a colour space nor of a key.
QString unbracketed(QString text) {
    static const QRegularExpression brackets("\\[[^\\[\\]]*\\]"),
        never(
            "\\b(?:Chromalog|RGB|CMYK|HSB|HSL|Lab|LCh|OKLCH|XYZ|CSS|AAA?|ΔE00|Ctrl|Shift|Alt|Del|Esc|Ins|x|y|"
            "rgb|hsl|oklch|lab|lch|hsb)\\b|#[0-9a-f]{6}|#rrggbb");
    for (QString before; before != text;) {
        before = text;
        text.remove(brackets);
    }
    return text.remove(never);
}

bool isOurs(const QString& text) {
    static const QRegularExpression word("[A-Za-z]{2}");
    return unbracketed(text).contains(word);
}

void look(const QString& text, const QObject& object, std::vector<std::string>& found) {
    if (isOurs(text))
        found.push_back(fromQt(object.objectName() + " (" + object.metaObject()->className() + "): " + text));
}

/// What a file panel holds, beside its title, are the toolkit's texts and files' names.
bool isInFilePanel(const QObject& object) {
    for (const QObject* above = object.parent(); above; above = above->parent())
        if (qobject_cast<const QFileDialog*>(above)) return true;
    return false;
}

/// Everything below a window, hidden or not, that a person could come to read or hear in English.
std::vector<std::string> englishIn(QWidget& window) {
    std::vector<std::string> found;
    QList<QObject*> all = window.findChildren<QObject*>();
    all.append(&window);
    for (QObject* object : all) {
        if (isInFilePanel(*object)) continue;
        for (const char* name :
             {"windowTitle", "toolTip", "accessibleName", "accessibleDescription", "text", "title", "texts",
              "terms", "hint", "left", "right", "between", "placeholderText", "fault"})
            look(object->property(name).toString(), *object, found);
        if (const auto* box = qobject_cast<QComboBox*>(object))
            for (int i = 0; i < box->count(); ++i)
                look(box->itemText(i), *box, found);
        if (const auto* rows = qobject_cast<QListWidget*>(object))
            for (int i = 0; i < rows->count(); ++i)
                look(rows->item(i)->text(), *rows, found);
        auto* widget = qobject_cast<QWidget*>(object);
        auto* told = widget ? QAccessible::queryAccessibleInterface(widget) : nullptr;
        if (!told || widget->objectName().startsWith("qt_")) continue;
        for (const auto kind : {QAccessible::Name, QAccessible::Description, QAccessible::Value})
            look(told->text(kind), *widget, found);
    }
    return found;
}

TEST_F(Languages, EveryFormIsTranslated) {
    QtDesktop& desktop = speak("ar-XB");
    for (const char* name : kForms) {
        const auto form = desktop.loadForm(name, {});
        ASSERT_NE(form, nullptr) << name;
        EXPECT_THAT(englishIn(*desktop.forms().back()->window()), IsEmpty()) << name;
    }
}

TEST_F(Languages, WhatTheDialogSaysAsItRunsIsTranslated) {
    QtDesktop& desktop = speak("ar-XB");
    ChromalogControler& dialog = makeDialog();
    window().show();
    for (SwatchPanel* panel : dialog.panels().both())
        fill(*panel);
    for (const char* item : {"itemContrast", "itemCustomAngle", "itemCompareLists", "itemNearestSwatches",
                             "itemNearestUnder", "itemLibrary1"})
        window().findChild<QAction*>(item)->trigger();
    const QStringList opening{"showProtocolWindow", "choosePicture:"};
    for (auto* button : window().findChildren<QAbstractButton*>())
        if (opening.contains(button->property("action").toString())) button->click();
    showShortcutSheet(window());
    dialog.colours().changeSecondColor(Colour::rgb(0, 0, 1));
    desktop.finishWork();
    QTest::qWait(20);
    EXPECT_GE(desktop.forms().size(), 8u);
    for (const QtForm* form : desktop.forms())
        EXPECT_THAT(englishIn(*form->window()), IsEmpty()) << form->window()->objectName().toStdString();
}

TEST_F(Languages, AlertsAndTheirButtonsAreTranslated) {
    QtDesktop& desktop = speak("de");
    QString button;
    QTimer::singleShot(0, [&] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        ASSERT_NE(box, nullptr);
        button = box->buttons().front()->text();
        box->accept();
    });
    desktop.runAlert({translated("Thist color exists !"), "Red", translated("ok")});
    EXPECT_EQ(button, "OK");
    EXPECT_EQ(desktop.alerts().front().message, "Diese Farbe gibt es schon!");
}

TEST_F(Languages, EnglishIsWhatTheFormsSay) {
    for (const char* code : {"", "en", "xx"}) {
        QtDesktop& desktop = speak(code);
        const auto form = desktop.loadForm("SwatchPrintOptions", {});
        EXPECT_EQ(desktop.forms().back()->window()->windowTitle(), "Print Swatches") << code;
        EXPECT_EQ(spokenLanguage(), nullptr);
    }
}

TEST_F(Languages, TheSizesOfPrintedSwatchesAreToldByTheirEnglishTitles) {
    QtDesktop& desktop = speak("de");
    Outlet<RadioMatrix> sizes;
    const auto form = desktop.loadForm("SwatchPrintOptions", {{{"buttonMatrix", &sizes}}, {}});
    std::vector<std::string> titles;
    for (const int row : {0, 1, 2}) {
        sizes->selectRow(row);
        titles.push_back(sizes->selectedTitle());
    }
    EXPECT_THAT(titles, testing::ElementsAre("Small", "Middle", "Large"));
    QStringList shown;
    for (const auto* button : desktop.widget("buttonMatrix")->findChildren<QAbstractButton*>())
        shown.append(button->text());
    EXPECT_EQ(shown, QStringList({"Klein", "Mittel", "Groß"}));
}

TEST_F(Languages, FromRightToLeftTheWindowIsTheOtherWayRound) {
    const auto places = [this](const char* language) {
        speak(language);
        makeDialog();
        window().resize(1280, 760);
        window().grab();
        std::map<std::string, QRect> found;
        for (const char* name : {"swatch1Scroller", "swatch2scroller", "chromaView", "lumiView", "firstR",
                                 "secondR", "okButton", "cancelButton", "colorName"}) {
            const QWidget& widget = *window().findChild<QWidget*>(name);
            found[name] = {widget.mapTo(&window(), QPoint()), widget.size()};
        }
        end();
        return found;
    };
    auto left = places("en"), right = places("ar-XB");
    EXPECT_LT(left["swatch1Scroller"].x(), left["swatch2scroller"].x());
    EXPECT_GT(right["swatch1Scroller"].x(), right["swatch2scroller"].x());
    EXPECT_LT(left["chromaView"].x(), left["lumiView"].x());
    EXPECT_GT(right["chromaView"].x(), right["lumiView"].x());
    EXPECT_LT(left["firstR"].x(), left["secondR"].x());
    EXPECT_GT(right["firstR"].x(), right["secondR"].x());
    EXPECT_GT(left["okButton"].x(), left["cancelButton"].x());
    EXPECT_LT(right["okButton"].x(), right["cancelButton"].x());
    EXPECT_EQ(left["swatch1Scroller"].x(), 1280 - right["swatch1Scroller"].right() - 1);
}

TEST_F(Languages, MenusAndBoxesReadAsTheWindowDoes) {
    speak("ar-XB");
    makeDialog();
    window().show();
    auto* menu = makeMenu(MenuItems{MenuItem{"one", "", {}}}, window());
    menu->popup({});
    EXPECT_EQ(menu->layoutDirection(), Qt::RightToLeft);
    menu->close();
    QMessageBox box(&window());
    box.show();
    EXPECT_EQ(box.layoutDirection(), Qt::RightToLeft);
}

TEST_F(Languages, OfAHostsApplicationNothingIsChanged) {
    QWidget hosts;
    hosts.show();
    const auto direction = QGuiApplication::layoutDirection();
    speak("ar-XB", false);
    makeDialog();
    window().show();
    QMenu menu(&hosts);
    menu.popup({});
    EXPECT_EQ(window().layoutDirection(), Qt::RightToLeft);
    EXPECT_EQ(hosts.layoutDirection(), direction);
    EXPECT_EQ(menu.layoutDirection(), direction);
    EXPECT_EQ(QGuiApplication::layoutDirection(), direction);
    EXPECT_EQ(QCoreApplication::translate("QPlatformTheme", "&Cancel"), "&Cancel");
}

TEST_F(Languages, AFormsTextIsNotTheToolkits) {
    QtDesktop& desktop = speak("fr");
    const auto form = desktop.loadForm("chromalogWindow", {});
    EXPECT_EQ(window().findChild<QAbstractButton*>("undoButton")->property("texts").toString(), "&Défaire");
    EXPECT_NE(QCoreApplication::translate("QWidgetTextControl", "&Undo"), "&Undo");
}

TEST_F(Languages, NothingIsLeftAfterAPick) {
    speak("de");
    EXPECT_NE(QCoreApplication::translate("QPlatformTheme", "Cancel"), "Cancel");
    makeDialog();
    end();
    EXPECT_EQ(QCoreApplication::translate("QPlatformTheme", "Cancel"), "Cancel");
    EXPECT_EQ(spokenLanguage(), nullptr);
    EXPECT_EQ(translated("Cancel"), "Cancel");
}

TEST_F(Languages, ThePseudoLanguageBracketsEveryAlternative) {
    EXPECT_EQ(pseudoText("&Open…|Open"), "[&Open…ss]|[Opens]");
    EXPECT_EQ(pseudoText("%1 of list %2"), "[%1 of list %2ssss]");
}

TEST(LanguageOfTheDesktop, IsTheFirstOfWhichThereIsATable) {
    EXPECT_EQ(languageAmong({}), "en");
    EXPECT_EQ(languageAmong({"C"}), "en");
    EXPECT_EQ(languageAmong({"de-AT", "de", "en"}), "de");
    EXPECT_EQ(languageAmong({"ja-JP", "fr_FR", "de"}), "fr");
    EXPECT_EQ(languageAmong({"en-GB", "de"}), "en");
    EXPECT_TRUE(isLanguage(languageOfDesktop()));
}

} // namespace
