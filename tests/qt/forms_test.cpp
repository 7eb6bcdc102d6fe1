// Interface files: what they name, what is said about a wrong one.
#include "qt/desktop_fixture.h"

#include "qt/form_names.h"
#include "qt/forms/built_forms.h"
#include "qt/forms/form_window.h"
#include "support/outlet_names.h"

#include <QAccessible>
#include <QDir>
#include <QLayout>
#include <QLibraryInfo>
#include <QMetaProperty>
#include <QPushButton>
#include <QXmlStreamReader>

#include <algorithm>
#include <dlfcn.h>
#include <set>
#include <vector>

using namespace chromalog;
using namespace chromalog::test;
using testing::Contains;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::UnorderedElementsAreArray;

namespace {

/// One named object of an interface file.
struct FormName {
    QString className;
    QString name;   ///< the outlet
    QString action; ///< the operation that it sends, or empty
};

/// Every widget and menu item of an interface file that is no decoration, in file order; read from the file's
/// text, so that objects which cannot be made are listed too.
std::vector<FormName> formNames(QIODevice& file) {
    std::vector<FormName> all;
    std::vector<std::size_t> open; // objects around the reader's place, as indices into `all`
    bool inAction = false;
    QXmlStreamReader xml(&file);
    while (!xml.atEnd()) {
        xml.readNext();
        const bool object = xml.name() == u"widget" || xml.name() == u"action";
        if (xml.isStartElement() && object) {
            open.push_back(all.size());
            all.push_back(
                {xml.attributes().value("class").toString(), xml.attributes().value("name").toString(), {}});
        } else if (xml.isEndElement() && object && !open.empty()) {
            open.pop_back();
        } else if (xml.isStartElement() && xml.name() == u"property") {
            inAction = xml.attributes().value("name") == u"action";
        } else if (xml.isStartElement() && xml.name() == u"string" && inAction && !open.empty()) {
            all[open.back()].action = xml.readElementText();
            inAction = false;
        }
    }
    std::erase_if(all, [](const FormName& n) { return n.action.isEmpty() && isDecoration(n.name); });
    return all;
}

QString interfaceFile(const char* form) {
    return QString(RESOURCES "/%1.ui").arg(form);
}

class FormsTest : public DesktopTest {
  protected:
    QtDesktop desktop{settings()};

    std::vector<std::string> log() const {
        return {desktop.logRing().lines().begin(), desktop.logRing().lines().end()};
    }
};

std::set<std::string> namesIn(const char* form) {
    QFile file(interfaceFile(form));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << form;
    std::set<std::string> names;
    for (const FormName& n : formNames(file))
        names.insert(n.name.toStdString());
    return names;
}

std::set<std::string> actionsIn(const char* form) {
    QFile file(interfaceFile(form));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << form;
    std::set<std::string> actions;
    for (const FormName& n : formNames(file))
        if (!n.action.isEmpty()) actions.insert(n.action.toStdString());
    return actions;
}

TEST_F(FormsTest, TheDialogHoldsEveryOutlet) {
    const std::set<std::string> names = namesIn("chromalogWindow");
    for (const char* outlet : kDialogOutlets)
        EXPECT_THAT(names, Contains(outlet));
}

TEST_F(FormsTest, EveryActionHasItsControl) {
    auto actions = actionsIn("chromalogWindow");
    for (const char* exchange : {"importPalette", "exportPalette", "showLibrary", "keepInLibrary"})
        for (const char* list : {"1:", "2:"})
            EXPECT_EQ(actions.erase(std::string(exchange) + list), 1u) << exchange << list;
    for (const char* judged : {"showContrast:", "showCustomAngle:", "toggleGamutWarning:",
                               "usePrintableFirst:", "usePrintableSecond:"})
        EXPECT_EQ(actions.erase(judged), 1u) << judged;
    for (const char* tool : {"compareLists:", "findNearDoubles:", "foldNearestUnder:", "showNearest:"})
        EXPECT_EQ(actions.erase(tool), 1u) << tool;
    EXPECT_EQ(actions.erase("choosePicture:"), 1u);
    EXPECT_EQ(actions.erase("showAbout:"), 1u);
    EXPECT_THAT(actions, UnorderedElementsAreArray({"okPressed:",
                                                    "cancelPressed:",
                                                    "toggleSecondColor:",
                                                    "useOfferedColor:",
                                                    "foldChart:",
                                                    "foldHarmonies:",
                                                    "foldNearest:",
                                                    "surroundDesktop:",
                                                    "surroundLight:",
                                                    "surroundMidGrey:",
                                                    "surroundDark:",
                                                    "complementOn:",
                                                    "harmoniquesOn:",
                                                    "triComplementOn:",
                                                    "quadriOn:",
                                                    "changeTone:",
                                                    "switchAbs:",
                                                    "switchTone:",
                                                    "loadSwatch1:",
                                                    "loadSwatch2:",
                                                    "appendSwatch1:",
                                                    "appendSwatch2:",
                                                    "killSwatch1:",
                                                    "killSwatch2:",
                                                    "sortAlpha1:",
                                                    "sortAlpha2:",
                                                    "sortHue1:",
                                                    "sortHue2:",
                                                    "saveSwatch1:",
                                                    "saveSwatch2:",
                                                    "loadASE:",
                                                    "editSwatch:",
                                                    "writeToSwatch:",
                                                    "deleteSwatch1:",
                                                    "deleteSwatch2:",
                                                    "jumpFirst:",
                                                    "jumpSecond:",
                                                    "doUndo:",
                                                    "doRedo:",
                                                    "showProtocolWindow",
                                                    "setupPrintPage:",
                                                    "refreshNearest:",
                                                    "bringBackLists:",
                                                    "pickFromScreen:",
                                                    "printFirstSwatch:",
                                                    "printSecondSwatch:",
                                                    "printToneOrDegrade:"}));
    EXPECT_THAT(actionsIn("ProtocolPanel"),
                UnorderedElementsAreArray({"undoAction:", "redoAction:", "dumpUndo"}));
    EXPECT_THAT(
        actionsIn("SwatchPrintOptions"),
        UnorderedElementsAreArray({"chooseSize:", "putName:", "putRGB:", "putCMYK:", "ok:", "cancelPrint:"}));
    EXPECT_THAT(actionsIn("EarlierLists"),
                UnorderedElementsAreArray({"bringBackList1:", "bringBackList2:", "closeEarlierLists:"}));
    EXPECT_THAT(actionsIn("ImportPanel"),
                UnorderedElementsAreArray({"importReplace:", "importAppend:", "importNew:", "closeImport:"}));
    EXPECT_THAT(
        actionsIn("ComparePanel"),
        UnorderedElementsAreArray({"chooseComparison:", "compareAdd1:", "compareAdd2:", "removeDoubles:"}));
    EXPECT_THAT(actionsIn("PicturePanel"),
                UnorderedElementsAreArray(
                    {"openPicture:", "pastePicture:", "cancelPicture:", "pictureSquare:", "pictureOrder:",
                     "takePictureColors:", "stepPictureColors:", "pictureToList1:", "pictureToList2:"}));
    EXPECT_THAT(actionsIn("ExportPanel"),
                UnorderedElementsAreArray({"exportAll:", "exportSelected:", "closeExport:"}));
}

TEST_F(FormsTest, ThePanelsHoldTheirOutlets) {
    for (const char* outlet : {"protocolWindow", "undoView", "redoView", "nubersUndo"})
        EXPECT_THAT(namesIn("ProtocolPanel"), Contains(outlet));
    for (const char* outlet : {"printOptionWindow", "buttonMatrix", "RGBCheck", "CMYKCheck", "NameCheck"})
        EXPECT_THAT(namesIn("SwatchPrintOptions"), Contains(outlet));
    for (const char* outlet :
         {"earlierListsWindow", "earlierLists", "earlierListsNote", "bringBackList1", "bringBackList2"})
        EXPECT_THAT(namesIn("EarlierLists"), Contains(outlet));
    for (const char* outlet : {"importWindow", "importNote", "importLoss", "importPatches", "importReplace",
                               "importAppend", "importNew"})
        EXPECT_THAT(namesIn("ImportPanel"), Contains(outlet));
    for (const char* outlet :
         {"contrastWindow", "contrastRatio", "contrastNormal", "contrastLarge", "contrastSample",
          "contrastProtanopia", "contrastDeuteranopia", "contrastTritanopia", "protanopiaRatio",
          "deuteranopiaRatio", "tritanopiaRatio"})
        EXPECT_THAT(namesIn("ContrastPanel"), Contains(outlet));
    for (const char* outlet : {"customAngleWindow", "customAngleDegrees", "origCustomAngle",
                               "customAngle1Color", "customAngle2Color"})
        EXPECT_THAT(namesIn("CustomAngle"), Contains(outlet));
    for (const char* outlet : {"libraryWindow", "libraryScroller", "libraryNote", "library"})
        EXPECT_THAT(namesIn("LibraryPanel"), Contains(outlet));
    for (const char* outlet : {"compareWindow", "compareScroller", "compareDifference", "compareView",
                               "compareOnlyOne", "compareOnlyTwo", "compareBoth", "compareDoublesOne",
                               "compareDoublesTwo", "compareRemove", "compareRows"})
        EXPECT_THAT(namesIn("ComparePanel"), Contains(outlet));
    for (const char* outlet : {"nearestWindow", "nearestScroller", "nearestTo", "nearestNote", "nearestRows"})
        EXPECT_THAT(namesIn("NearestPanel"), Contains(outlet));
    for (const char* outlet : {"pictureWindow", "picture", "pictureNote", "picturePlace", "pictureSquare",
                               "pictureOrder", "pictureCount", "pictureCountStep", "takenScroller",
                               "takenColors", "cancelPicture", "pictureToList1", "pictureToList2"})
        EXPECT_THAT(namesIn("PicturePanel"), Contains(outlet));
    for (const char* outlet : {"exportWindow", "exportKinds", "exportAll", "exportSelected"})
        EXPECT_THAT(namesIn("ExportPanel"), Contains(outlet));
}

TEST_F(FormsTest, TheCompiledFormsLoadWithoutARemark) {
    for (const char* name :
         {"chromalogWindow", "ProtocolPanel", "SwatchPrintOptions", "EarlierLists", "ImportPanel",
          "ExportPanel", "LibraryPanel", "ComparePanel", "NearestPanel", "PicturePanel"}) {
        FormOwner owner;
        QFile file(interfaceFile(name));
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        std::vector<std::string> actions;
        for (const FormName& n : formNames(file))
            actions.push_back(n.action.toStdString());
        for (const std::string& action : actions)
            owner.actions.push_back({action, [] {}});
        EXPECT_NE(desktop.loadForm(name, owner), nullptr);
        for (const std::string& line : log())
            EXPECT_THAT(line, HasSubstr("no outlet")); // the owner has none
    }
}

/// What an object of a form is: its class, its name, its parent's, and its properties' values as text.
std::string described(const QObject& object) {
    QString text = QString("%1 %2 in %3")
                       .arg(object.metaObject()->className(), object.objectName(),
                            object.parent() ? object.parent()->objectName() : "");
    const auto add = [&text](const char* name, const QVariant& value) {
        QString shown;
        QDebug(&shown) << value;
        text += QString("\n  %1 %2")
                    .arg(name, value.canConvert<QObject*>() || value.canConvert<QIcon>() ? "" : shown);
    };
    for (int i = 0; i < object.metaObject()->propertyCount(); ++i)
        add(object.metaObject()->property(i).name(), object.metaObject()->property(i).read(&object));
    QList<QByteArray> own = object.dynamicPropertyNames();
    if (qobject_cast<const QLayout*>(&object)) own.clear(); // the reader leaves its margins there
    std::ranges::sort(own);
    for (const QByteArray& name : own)
        if (!name.startsWith("_q_")) add(name, object.property(name));
    return text.toStdString();
}

/// All that a window holds, without what the toolkit's reader leaves of itself.
QList<QObject*> partsOf(const QWidget& window) {
    QList<QObject*> parts = window.findChildren<QObject*>();
    parts.removeIf([](const QObject* part) { return part->inherits("QFormInternal::TranslationWatcher"); });
    return parts;
}

TEST_F(FormsTest, WhatIsCompiledInIsWhatTheFilesSay) {
    for (const char* name : {"chromalogWindow", "ProtocolPanel", "SwatchPrintOptions", "EarlierLists"}) {
        std::vector<std::string> problems;
        const auto built = builtForm(name);
        const auto read = formFromFile(interfaceFile(name), readFormFile, problems);
        ASSERT_NE(built, nullptr);
        ASSERT_NE(read, nullptr);
        EXPECT_THAT(problems, IsEmpty());
        EXPECT_EQ(described(*built), described(*read));
        const auto builtParts = partsOf(*built), readParts = partsOf(*read);
        ASSERT_EQ(builtParts.size(), readParts.size()) << name;
        for (qsizetype i = 0; i < builtParts.size(); ++i)
            EXPECT_EQ(described(*builtParts[i]), described(*readParts[i]));
    }
}

TEST_F(FormsTest, NoPlugInOfTheDesignerIsLoaded) {
    const QString designer = QString::fromStdString(folder / "designer");
    ASSERT_TRUE(QDir().mkdir(designer));
    const QDir platforms(QLibraryInfo::path(QLibraryInfo::PluginsPath) + "/platforms");
    const QString plugIn = designer + "/plugin.so"; // any of the toolkit's will do
    ASSERT_TRUE(QFile::copy(platforms.filePath(platforms.entryList({"*qminimal.*"}).value(0)), plugIn));
    QCoreApplication::addLibraryPath(QString::fromStdString(folder.path()));
    const QStringList before = QCoreApplication::libraryPaths();
    ASSERT_TRUE(QFile::copy(interfaceFile("chromalogWindow"),
                            QString::fromStdString(folder / "chromalogWindow.ui"))); // so that it is read
    EXPECT_NE(desktop.loadForm("chromalogWindow", {}), nullptr);
    EXPECT_EQ(dlopen(plugIn.toStdString().c_str(), RTLD_LAZY | RTLD_NOLOAD), nullptr);
    EXPECT_EQ(QCoreApplication::libraryPaths(), before);
}

TEST_F(FormsTest, AFolderOverridesTheCompiledFormsFileByFile) {
    writeDialog("ProtocolPanel", "<widget class=\"QPushButton\" name=\"undoView\"/>");
    const auto panel = desktop.loadForm("ProtocolPanel", {});
    ASSERT_NE(panel, nullptr);
    EXPECT_NE(qobject_cast<QPushButton*>(desktop.widget("undoView")), nullptr);
    const auto options = desktop.loadForm("SwatchPrintOptions", {});
    ASSERT_NE(options, nullptr);
    EXPECT_NE(desktop.widget("buttonMatrix"), nullptr);
}

TEST_F(FormsTest, AMissingOrBrokenFormIsNoForm) {
    EXPECT_EQ(desktop.loadForm("nowhere", {}), nullptr);
    for (const char* text :
         {"", "<ui", "not a form", "<ui version=\"4.0\"><widget class=\"Unknown\" name=\"w\"/></ui>",
          "<ui version=\"4.0\"><widget class=\"QWidget\" name=\"w\"/></ui>"}) {
        writeForm("broken", text);
        const std::size_t before = log().size();
        EXPECT_EQ(desktop.loadForm("broken", {}), nullptr) << text;
        EXPECT_GT(log().size(), before) << text;
    }
}

TEST_F(FormsTest, WhatDoesNotFitIsNamed) {
    writeDialog("odd", "<widget class=\"QPushButton\" name=\"doIt\"><property name=\"action\" stdset=\"0\">"
                       "<string>doIt:</string></property></widget><widget class=\"QLabel\" name=\"twice\"/>"
                       "<widget class=\"QLabel\" name=\"twice\"/><widget class=\"Missing\" name=\"lost\"/>"
                       "<widget class=\"QLabel\" name=\"captionTitle\"/>");
    Outlet<TextField> wanted;
    FormOwner owner;
    owner.outlets = {{"wanted", &wanted}};
    ASSERT_NE(desktop.loadForm("odd", owner), nullptr);
    EXPECT_THAT(log(), UnorderedElementsAreArray(
                           {"odd: no class Missing for lost", "odd: the name twice stands twice",
                            "odd: outlet wanted is not connected",
                            "odd: no action doIt:", "odd: no outlet twice", "odd: no outlet twice"}));
    EXPECT_FALSE(wanted.connected());
}

TEST_F(FormsTest, AnOutletOfTheWrongKindIsNotConnected) {
    writeDialog("odd", "<widget class=\"QLabel\" name=\"level\"/>");
    Outlet<Slider> slider;
    FormOwner owner;
    owner.outlets = {{"level", &slider}};
    const auto form = desktop.loadForm("odd", owner);
    EXPECT_FALSE(slider.connected());
    slider->setEnabled(true); // does nothing
    EXPECT_EQ(slider->value(), 0);
}

TEST_F(FormsTest, ATakenDownFormLeavesNothingConnected) {
    SpyView view;
    Outlet<Button> button;
    FormOwner owner;
    writeDialog(
        "two", "<widget class=\"ViewWidget\" name=\"view\"/><widget class=\"QPushButton\" name=\"button\"/>");
    owner.outlets = {{"view", &view}, {"button", &button}};
    auto form = desktop.loadForm("two", owner);
    EXPECT_TRUE(view.connected());
    EXPECT_TRUE(button.connected());
    form.reset();
    EXPECT_FALSE(view.connected());
    EXPECT_FALSE(button.connected());
    EXPECT_EQ(desktop.widget("button"), nullptr);
}

TEST_F(FormsTest, AMenuItemSendsItsAction) {
    int sent = 0;
    FormOwner owner;
    owner.actions = {{"deleteSwatch2:", [&] { ++sent; }}};
    const auto form = desktop.loadForm("chromalogWindow", owner);
    auto* menu = desktop.widget("chromalogWindow")->findChild<QMenu*>("swatchContextMenu2");
    ASSERT_NE(menu, nullptr);
    QStringList texts;
    for (const QAction* action : menu->actions())
        texts.append(action->text());
    ASSERT_EQ(texts, (QStringList{"Delete Swatch", "", "Import…", "Export…", "Library…", "Keep in Library"}));
    menu->actions().front()->trigger();
    EXPECT_EQ(sent, 1);
}

TEST_F(FormsTest, OnlyOkIsPressedByReturn) {
    const auto form = desktop.loadForm("chromalogWindow", {});
    for (const QPushButton* button : desktop.widget("chromalogWindow")->findChildren<QPushButton*>())
        EXPECT_EQ(button->autoDefault(), button->objectName() == "okButton")
            << button->objectName().toStdString();
}

TEST_F(FormsTest, TheDialogFitsASmallScreen) {
    const auto form = desktop.loadForm("chromalogWindow", {});
    const QWidget& dialog = *desktop.widget("chromalogWindow");
    EXPECT_LE(dialog.minimumSizeHint().width(), 880);
    EXPECT_LE(dialog.minimumSizeHint().height(), 500); // 540 less a title bar
    EXPECT_EQ(dialog.size(), QSize(1280, 760)) << "as it opens, whatever the screen";
}

TEST_F(FormsTest, EveryControlThatTakesTheKeyboardHasANameForAssistiveTechnology) {
    const auto form = desktop.loadForm("chromalogWindow", {});
    for (QWidget* widget : desktop.widget("chromalogWindow")->findChildren<QWidget*>()) {
        if (widget->focusPolicy() == Qt::NoFocus || isDecoration(widget->objectName())) continue;
        if (qobject_cast<ViewWidget*>(widget)) continue; // named by its view
        const auto* accessible = QAccessible::queryAccessibleInterface(widget);
        ASSERT_NE(accessible, nullptr);
        EXPECT_FALSE(accessible->text(QAccessible::Name).isEmpty()) << widget->objectName().toStdString();
    }
}

} // namespace
