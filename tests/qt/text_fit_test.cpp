// What the dialog says fits where it stands: in every style, with system fonts of 8 to 20 points, at every
// scale and window size.
#include "qt/desktop_fixture.h"

#include "base/translated.h"
#include "qt/controls/elided_label.h"
#include "qt/controls/fit_button.h"
#include "qt/controls/fit_label.h"
#include "qt/controls/two_way_switch.h"
#include "qt/convert.h"

#include <QApplication>
#include <QLineEdit>
#include <QScrollArea>
#include <QStyleFactory>
#include <QStyleOptionFrame>

#include <algorithm>

using namespace chromalog;
using namespace chromalog::test;
using testing::IsEmpty;

namespace {

struct Surroundings {
    const char* style;
    const char* scale;
    const char* language = "en";
};

void PrintTo(const Surroundings& s, std::ostream* out) {
    *out << s.style << " at " << s.scale << " in " << s.language;
}

constexpr int kFonts[] = {8, 9, 10, 11, 14, 20}; ///< points
constexpr QSize kWindows[] = {{960, 540}, {1024, 600}, {1366, 768}, {1920, 1080}, {2560, 1440}};

/// Takes effect where the application is made.
struct Scale {
    explicit Scale(const char* scale) { setenv("QT_SCALE_FACTOR", scale, 1); }
    ~Scale() { unsetenv("QT_SCALE_FACTOR"); }
};

/// The dialog's form with the widest texts in it that its controls have to show.
class TextFit : public testing::WithParamInterface<Surroundings>, Scale, public DesktopTest {
  protected:
    TextFit() : Scale(GetParam().scale) {}

    void SetUp() override {
        QStyle* style = QStyleFactory::create(GetParam().style);
        if (!style) GTEST_SKIP() << "the style " << GetParam().style << " is not installed";
        QApplication::setStyle(style);
        ASSERT_EQ(QApplication::style()->name().toStdString(),
                  QString(GetParam().style).toLower().toStdString());
        QtDesktopSettings spoken = settings();
        spoken.language = GetParam().language;
        desktop = std::make_unique<QtDesktop>(spoken);
    }

    /// Loads the form anew: what a style or a font does when a widget is first polished counts too.
    QWidget& load(int points) {
        QFont font = QApplication::font();
        font.setPointSize(points);
        QApplication::setFont(font);
        form = desktop->loadForm("chromalogWindow", {});
        QWidget& window = *desktop->widget("chromalogWindow");
        for (auto* field : window.findChildren<QLineEdit*>())
            if (field->property("digits").toInt() == 3) field->setText("255");
        for (auto* label : window.findChildren<QLabel*>())
            if (label->property("digits").toInt() == 3) label->setText("255");
        for (const char* found : {"found1", "found2"})
            window.findChild<QLabel*>(found)->setText(toQt(translated("%1 found", 5000)));
        window.findChild<QPushButton*>("okButton")->setText(toQt(translated("Use 2nd color")));
        window.show();
        return window;
    }

    std::unique_ptr<QtDesktop> desktop;
    std::unique_ptr<Form> form;
};

/// The pixels that a field has for its text.
int roomIn(const QLineEdit& field) {
    struct Open : QLineEdit {
        using QLineEdit::initStyleOption;
    };
    QStyleOptionFrame option;
    (field.*(&Open::initStyleOption))(&option);
    const QMargins margins = field.textMargins();
    const int contents = field.style()->subElementRect(QStyle::SE_LineEditContents, &option, &field).width();
    return contents - margins.left() - margins.right() - 4; // the toolkit's own, 2 on each side
}

/// The pixels by which the widget's text is wider than its place; not more than 0 where it fits.
int tooWide(const QWidget& widget) {
    const auto advance = [&](const QString& text) { return widget.fontMetrics().horizontalAdvance(text); };
    if (const auto* button = qobject_cast<const FitButton*>(&widget))
        return button->widthAt(button->levelThatFits(button->width())) - button->width();
    if (const auto* choice = qobject_cast<const TwoWaySwitch*>(&widget))
        return advance(choice->property("right").toString().section('|', -1)) + 10 - choice->width() / 2;
    if (qobject_cast<const ElidedLabel*>(&widget)) return 0; // cut on purpose, with dots
    if (const auto* caption = qobject_cast<const FitLabel*>(&widget))
        return caption->wide(caption->texts().section('|', -1)) - caption->width();
    if (const auto* label = qobject_cast<const QLabel*>(&widget))
        return label->fontMetrics().size(label->buddy() ? Qt::TextShowMnemonic : 0, label->text()).width() -
               label->contentsRect().width();
    if (const auto* field = qobject_cast<const QLineEdit*>(&widget))
        return advance(field->text().isEmpty() ? field->placeholderText() : field->text()) - roomIn(*field);
    if (const auto* button = qobject_cast<const QAbstractButton*>(&widget);
        button && !button->text().isEmpty())
        return widget.fontMetrics().size(Qt::TextShowMnemonic, button->text()).width() + 8 - widget.width();
    return 0;
}

bool saysSomething(const QWidget& widget) {
    const auto* button = qobject_cast<const QAbstractButton*>(&widget);
    return qobject_cast<const QLabel*>(&widget) || qobject_cast<const QLineEdit*>(&widget) ||
           (button && !button->text().isEmpty());
}

bool isScrolled(const QWidget& content) {
    const QWidget* viewport = content.parentWidget();
    return viewport && qobject_cast<const QScrollArea*>(viewport->parentWidget());
}

/// Sticks out of what holds it. The content of a scroll area may do so upwards and downwards.
bool sticksOut(const QWidget& widget) {
    const QWidget* parent = widget.parentWidget();
    if (!parent || widget.isWindow()) return false;
    const QRect room = parent->rect(), place = widget.geometry();
    if (isScrolled(widget)) return place.left() < 0 || place.right() > room.right();
    return !room.contains(place);
}

bool liesOver(const QWidget& a, const QWidget& b) {
    const bool mayLieOver = qobject_cast<const ViewWidget*>(&a) || a.objectName() == "boxWells" ||
                            b.objectName() == "boxWells"; // views that share a place; the wells' free middle
    return !mayLieOver && a.geometry().intersects(b.geometry());
}

/// Scroll bars that come and go are told by events.
void layOut(QWidget& window) {
    window.grab(QRect(0, 0, 1, 1));
    QApplication::sendPostedEvents();
}

std::vector<std::string> misfits(const QWidget& window) {
    std::vector<std::string> found;
    const auto note = [&](const QWidget& widget, const std::string& what) {
        found.push_back(widget.objectName().toStdString() + " " + what);
    };
    for (const QWidget* widget : window.findChildren<QWidget*>()) {
        if (!widget->isVisible() || widget->window() != &window) continue;
        if (const int pixels = tooWide(*widget); pixels > 0)
            note(*widget, "is cut by " + std::to_string(pixels));
        if (saysSomething(*widget) && widget->fontMetrics().height() > widget->height() + 1)
            note(*widget, "is too low");
        if (sticksOut(*widget))
            note(*widget, "sticks out to " + std::to_string(widget->geometry().right()) + " of " +
                              std::to_string(widget->parentWidget()->width()));
        for (const QObject* other : widget->parentWidget()->children())
            if (const auto* beside = qobject_cast<const QWidget*>(other);
                beside && beside > widget && beside->isVisible() && liesOver(*widget, *beside))
                note(*widget, "lies over " + beside->objectName().toStdString());
    }
    return found;
}

TEST_P(TextFit, NothingIsCutAtAnySize) {
    for (const int points : kFonts) {
        if (points > 11 && GetParam().language == kPseudoLanguage) continue; // longer than any language
        QWidget& window = load(points);
        for (const QSize size : kWindows) {
            window.resize(size);
            layOut(window);
            EXPECT_EQ(window.size(), size);
            EXPECT_THAT(misfits(window), IsEmpty())
                << points << " points, " << size.width() << " pixels wide";
        }
    }
}

TEST_P(TextFit, NothingIsCutInAPanel) {
    load(GetParam().language == kPseudoLanguage ? 9 : 10); // longer than any language
    for (const char* name :
         {"ComparePanel", "ContrastPanel", "CustomAngle", "EarlierLists", "ExportPanel", "ImportPanel",
          "LibraryPanel", "NearestPanel", "PicturePanel", "ProtocolPanel", "SwatchPrintOptions"}) {
        const auto panel = desktop->loadForm(name, {});
        QWidget& window = *desktop->forms().back()->window();
        window.show();
        layOut(window);
        EXPECT_THAT(misfits(window), IsEmpty()) << name;
    }
}

TEST_P(TextFit, WhatAPickNeedsIsInViewInASmallWindow) {
    for (const int points : kFonts) {
        QWidget& window = load(points);
        window.resize(960, 540);
        layOut(window);
        for (const char* name :
             {"okButton", "cancelButton", "origFirstColor", "offeredColor", "origSecondColor",
              "toggleSecondColor", "swatch1Scroller", "swatch2scroller"}) {
            const auto& widget = *window.findChild<QWidget*>(name);
            const QRect inWindow(widget.mapTo(&window, QPoint()), widget.size());
            EXPECT_TRUE(window.rect().contains(inWindow)) << name << " at " << points;
            EXPECT_EQ(widget.visibleRegion().boundingRect(), widget.rect()) << name << " at " << points;
        }
        EXPECT_GE(window.findChild<QWidget*>("swatch1Scroller")->height(), 88);
    }
}

INSTANTIATE_TEST_SUITE_P(Everywhere, TextFit, testing::ValuesIn([] {
                             std::vector<Surroundings> all;
                             for (const char* style : {"Fusion", "Adwaita", "Windows"})
                                 for (const char* scale : {"1", "1.25", "1.5", "2"})
                                     all.push_back({style, scale});
                             for (const char* language : {"de", "fr", "ar-XB"})
                                 all.push_back({"Fusion", "1", language});
                             return all;
                         }()),
                         [](const auto& info) {
                             std::string name = std::string(info.param.style) + info.param.scale;
                             if (const std::string language = info.param.language; language != "en")
                                 name += language;
                             std::erase_if(name, [](char c) { return c == '.' || c == '-'; });
                             return name;
                         });

} // namespace
