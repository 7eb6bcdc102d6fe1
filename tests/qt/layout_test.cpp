// Containers and controls whose sizes follow the window and the font alone.
#include "qt/desktop_fixture.h"

#include "qt/controls/compact_field.h"
#include "qt/controls/fit_button.h"
#include "qt/controls/fit_label.h"
#include "qt/controls/glyphs.h"
#include "qt/controls/two_way_switch.h"
#include "qt/layout/columns_box.h"
#include "qt/layout/fields_box.h"
#include "qt/layout/fit_row.h"
#include "qt/layout/stage_box.h"
#include "qt/layout/work_area.h"
#include "qt/layout/work_column.h"
#include "qt/layout/wrap_row.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QMenu>
#include <QScrollArea>
#include <QStyleFactory>
#include <QStyleOptionFrame>

using namespace chromalog;
using namespace chromalog::test;

namespace {

class LayoutTest : public DesktopTest {
  protected:
    QtDesktop desktop{settings()};
};

/// A child of a fixed height that plays the part.
QWidget* part(QWidget& container, const char* name, int height = 30) {
    auto* child = new QWidget(&container);
    child->setProperty("part", name);
    child->setMinimumHeight(height);
    child->setMaximumHeight(QWIDGETSIZE_MAX);
    return child;
}

struct Stage : StageBox {
    QWidget *wheel = part(*this, "wheel"), *strip = part(*this, "strip"), *chart = part(*this, "chart");
    FitRow* controls = new FitRow(this);
    FitButton* print = new FitButton(controls);

    explicit Stage(QWidget* parent = nullptr) : StageBox(parent) {
        controls->setProperty("part", "controls");
        auto* row = new QHBoxLayout(controls);
        row->setContentsMargins(0, 0, 0, 0);
        row->addWidget(print);
        print->setTexts("Print…|Print");
        setProperty("part", "stage");
    }
};

TEST_F(LayoutTest, WheelAndChartAreSquareAndShareAHeight) {
    Stage stage;
    for (const QSize size : {QSize(600, 256), QSize(930, 480), QSize(1400, 760), QSize(930, 900)}) {
        stage.resize(size);
        stage.grab();
        const QRect wheel = stage.wheel->geometry(), chart = stage.chart->geometry();
        EXPECT_EQ(wheel.width(), wheel.height());
        EXPECT_EQ(chart.width(), chart.height());
        EXPECT_EQ(chart.width() % 16, 0);
        EXPECT_EQ(stage.strip->height(), wheel.height());
        EXPECT_EQ(chart.top(), wheel.top());
        EXPECT_EQ(stage.controls->geometry().bottom(), wheel.bottom());
        EXPECT_LE(chart.right(), stage.width() - 1);
        EXPECT_GE(stage.controls->y(), chart.bottom());
        EXPECT_TRUE(wheel.height() == stage.height() || wheel.height() == stage.usefulHeight(stage.width()));
    }
}

TEST_F(LayoutTest, AFoldedChartLeavesItsRoomToTheWheel) {
    Stage stage;
    stage.resize(930, 900);
    stage.grab();
    const int before = stage.wheel->width();
    stage.chart->hide();
    stage.controls->hide();
    stage.resize(931, 900);
    stage.grab();
    EXPECT_GT(stage.wheel->width(), before + 300);
}

TEST_F(LayoutTest, AListIsAsWideAsTheWindowAllows) {
    EXPECT_EQ(ColumnsBox::listWidth(936), 160);
    EXPECT_EQ(ColumnsBox::listWidth(1342), 200);
    EXPECT_EQ(ColumnsBox::listWidth(9000), 304);
    ColumnsBox box;
    QWidget *work = part(box, "work"), *one = part(box, "list1"), *two = part(box, "list2"),
            *library = part(box, "library");
    library->hide();
    box.resize(1342, 600);
    box.grab();
    EXPECT_EQ(one->geometry(), QRect(0, 0, 200, 600));
    EXPECT_EQ(work->geometry(), QRect(216, 0, 910, 600));
    EXPECT_EQ(two->geometry(), QRect(1142, 0, 200, 600));
    library->show();
    box.resize(1342, 601);
    box.grab();
    EXPECT_EQ(library->x(), 0);
    EXPECT_EQ(one->x(), 216);
    EXPECT_EQ(work->width(), 694);
    box.setLayoutDirection(Qt::RightToLeft);
    box.resize(1342, 602);
    box.grab();
    EXPECT_EQ(two->x(), 0);
    EXPECT_EQ(library->geometry().right(), 1341);
}

/// A whole work area: fields of the given height, a stage and one more section.
struct Work : WorkArea {
    QWidget* wells = part(*this, "wells", 70);
    QScrollArea* scroll = new QScrollArea(this);
    WorkColumn* column = new WorkColumn;
    Stage* stage = new Stage(column);
    FieldsBox* fields = new FieldsBox(column);
    QWidget *first = part(*fields, "first", 110), *second = part(*fields, "second", 110);
    QWidget* below = part(*column, "harmonies", 80);

    Work() {
        scroll->setProperty("part", "scroll");
        scroll->setFrameShape(QFrame::NoFrame);
        scroll->setWidgetResizable(true);
        scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        scroll->setWidget(column);
        fields->setProperty("part", "fields");
        below->setProperty("grow", 1);
        for (QWidget* side : {first, second}) {
            auto* row = new QHBoxLayout(side);
            row->addWidget(new QWidget);
            row->itemAt(0)->widget()->setMinimumSize(180, 90);
        }
        auto* row = new QHBoxLayout(wells);
        row->addWidget(new QWidget);
        row->itemAt(0)->widget()->setMinimumSize(90, 40);
    }
};

TEST_F(LayoutTest, TheWellsStandBetweenTheFieldsWhereEverythingFits) {
    Work work;
    work.resize(900, 640);
    work.grab();
    const QRect fields(work.fields->mapTo(&work, QPoint()), work.fields->size());
    EXPECT_EQ(work.wells->y(), fields.y());
    EXPECT_GT(work.wells->x(), work.first->geometry().right());
    EXPECT_LT(work.wells->geometry().right(), work.second->x());
    EXPECT_LE(work.column->height(), work.scroll->height());
}

TEST_F(LayoutTest, TheWellsStayOnTopWhereTheRestScrolls) {
    Work work;
    for (const QSize size : {QSize(900, 330), QSize(460, 700)}) {
        work.resize(size);
        work.grab();
        EXPECT_EQ(work.wells->geometry().topLeft(), QPoint(0, 0));
        EXPECT_EQ(work.wells->width(), work.width());
        EXPECT_GT(work.scroll->y(), work.wells->geometry().bottom());
    }
    work.resize(380, 400); // too narrow for both colours' fields side by side
    work.grab();
    EXPECT_EQ(work.first->x(), work.second->x());
    EXPECT_EQ(work.stage->y(), 0);
    EXPECT_GT(work.column->height(), work.scroll->height());
}

TEST_F(LayoutTest, ABlockThatDoesNotFitStartsALine) {
    WrapRow row;
    for (int i = 0; i < 3; ++i) {
        auto* block = new QHBoxLayout(new QWidget(&row));
        block->setContentsMargins(0, 0, 0, 0);
        block->addWidget(new QWidget);
        block->itemAt(0)->widget()->setMinimumSize(100, 20);
    }
    EXPECT_EQ(row.heightForWidth(324), 20);
    EXPECT_EQ(row.heightForWidth(323), 44);
    EXPECT_EQ(row.heightForWidth(150), 68);
}

TEST_F(LayoutTest, AButtonSaysWhatFits) {
    FitButton button;
    button.setTexts("Add first color|Add");
    button.setProperty("sign", "append");
    EXPECT_EQ(button.text(), "Add first color");
    EXPECT_EQ(button.levelThatFits(button.widthAt(0)), 0);
    EXPECT_EQ(button.levelThatFits(button.widthAt(0) - 1), 1);
    EXPECT_EQ(button.levelThatFits(button.widthAt(1) - 1), FitButton::kSign);
    EXPECT_EQ(button.minimumSizeHint().width(), button.widthAt(FitButton::kSign));
    const int height = button.sizeHint().height();
    button.setTexts("Überaus lange Beschriftung|Lang");
    EXPECT_EQ(button.minimumSizeHint(), QSize(button.widthAt(FitButton::kSign), height));
}

TEST_F(LayoutTest, TheButtonsOfARowSpeakAlike) {
    QWidget window; // a window of its own would not get narrower than its layout
    FitRow row(&window);
    auto* layout = new QHBoxLayout(&row);
    layout->setContentsMargins(0, 0, 0, 0);
    FitButton* buttons[2];
    for (FitButton*& button : buttons) {
        layout->addWidget(button = new FitButton);
        button->setProperty("sign", "append");
    }
    buttons[0]->setTexts("A rather long text|Short");
    buttons[1]->setTexts("Ok");
    const auto levels = [&](int width) {
        row.resize(width, 40);
        row.grab();
        return std::pair(buttons[0]->levelThatFits(999), buttons[1]->levelThatFits(999));
    };
    EXPECT_EQ(levels(600), std::pair(0, 0));
    EXPECT_EQ(levels(buttons[0]->widthAt(1) + buttons[1]->widthAt(1) + layout->spacing()), std::pair(1, 1));
    EXPECT_EQ(levels(60), std::pair(FitButton::kSign, FitButton::kSign));
    EXPECT_EQ(row.minimumSizeHint().width(), buttons[0]->widthAt(FitButton::kSign) +
                                                 buttons[1]->widthAt(FitButton::kSign) + layout->spacing());
}

TEST_F(LayoutTest, AButtonWithAMenuOpensItByItsArrowAlone) {
    QDialog dialog;
    auto* menu = new QMenu(&dialog);
    menu->setObjectName("loadMenu");
    menu->addAction("Append…");
    FitButton button(&dialog);
    button.setTexts("Load…");
    button.setProperty("menuName", "loadMenu");
    button.setProperty("action", "load:");
    button.resize(100, 24);
    int pressed = 0;
    QObject::connect(&button, &QPushButton::clicked, [&] { ++pressed; });
    dialog.show();
    QTest::mouseClick(&button, Qt::LeftButton, {}, QPoint(30, 12));
    EXPECT_EQ(pressed, 1);
    EXPECT_FALSE(menu->isVisible());
    QTest::mouseClick(&button, Qt::LeftButton, {}, button.menuSpot());
    EXPECT_EQ(pressed, 1);
    EXPECT_TRUE(menu->isVisible());
    menu->close();
    QTest::keyClick(&button, Qt::Key_Down);
    EXPECT_TRUE(menu->isVisible());
}

/// Pixels that the text of a field has: the style's part, less the margins that a style may have set.
int roomIn(const QLineEdit& field) {
    struct Open : QLineEdit {
        using QLineEdit::initStyleOption;
    };
    QStyleOptionFrame option;
    (field.*(&Open::initStyleOption))(&option);
    const int contents = field.style()->subElementRect(QStyle::SE_LineEditContents, &option, &field).width();
    const QMargins margins = field.textMargins();
    return contents - margins.left() - margins.right() - 4; // the toolkit's own, 2 on each side
}

TEST_F(LayoutTest, AFieldShowsItsDigitsInEveryStyle) {
    for (const QString& name : QStyleFactory::keys()) {
        const std::unique_ptr<QStyle> style(QStyleFactory::create(name));
        for (const int points : {8, 11, 20}) {
            CompactField field;
            field.setProperty("digits", 3);
            field.setStyle(style.get());
            QFont font = field.font();
            font.setPointSize(points);
            field.setFont(font);
            field.ensurePolished();
            field.resize(field.sizeHint());
            EXPECT_GE(roomIn(field), field.fontMetrics().horizontalAdvance("888"))
                << name.toStdString() << points;
            EXPECT_LE(field.height(), std::max(24, field.fontMetrics().height() + 10)) << name.toStdString();
        }
    }
}

TEST_F(LayoutTest, CaptionsAndSwitchesKeepTheirLeastWidthWhateverTheySay) {
    FitLabel label;
    label.setTexts("Nearest in list 1|1");
    TwoWaySwitch change;
    change.setProperty("left", "First|1");
    const QSize small = label.minimumSizeHint(), least = change.minimumSizeHint();
    label.setTexts("Die nächste Farbe der ersten Liste|1");
    change.setProperty("left", "Gibt die erste zurück|1");
    EXPECT_EQ(label.minimumSizeHint(), small);
    EXPECT_EQ(change.minimumSizeHint(), least);
}

TEST_F(LayoutTest, ASignHasLinesWithinItsSquare) {
    for (const char* name : {"undo", "load", "hue", "clear", "page", "triad"}) {
        EXPECT_FALSE(glyph(name).isEmpty()) << name;
        EXPECT_TRUE(QRectF(0, 0, kGlyphSide, kGlyphSide).contains(glyph(name).boundingRect())) << name;
    }
    EXPECT_TRUE(glyph("nothing").isEmpty());
}

} // namespace
