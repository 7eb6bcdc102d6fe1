// Repainting and scrolling a swatch list of 200 x 400 points, beside a blit of its size and beside the
// toolkit's own list with a delegate that draws the same rows.
#include "made_swatches.h"

#include "qt/application_guard.h"
#include "qt/controls/list_scroll_area.h"
#include "qt/convert.h"
#include "qt/fonts.h"
#include "qt/view_widget.h"
#include "record/name_text.h"
#include "support/list_delegate.h"
#include "swatches/swatch_list_geometry.h"
#include "swatches/swatch_list_view.h"

#include <QAbstractListModel>
#include <QApplication>
#include <QListView>
#include <QPainter>
#include <QScrollBar>
#include <QStyledItemDelegate>
#include <benchmark/benchmark.h>

#include <cstdlib>
#include <memory>

namespace chromalog {
namespace {

constexpr int kWidth = 200, kHeight = 400, kRow = ScrollView::kRowPitch;

struct Offscreen {
    Offscreen() { ::setenv("QT_QPA_PLATFORM", "offscreen", 0); }
};

class QuietDelegate : public test::ListDelegate {
  public:
    Desktop& desktop() override {
        screen.logLines.clear(); // a line a draw would fill the memory
        return screen;
    }
};

std::unique_ptr<FCOStruct[]> swatches(int count) {
    auto records = std::make_unique<FCOStruct[]>(kListCapacity);
    makeSwatches({records.get(), static_cast<std::size_t>(count)});
    return records;
}

/// A swatch list in its scroll area, on the screen.
struct ShownList : Offscreen {
    explicit ShownList(int count) : records(swatches(count)) {
        area.resize(kWidth + 30, kHeight + 4);
        area.setWidget(widget);
        list.setSwatchList(records.get());
        list.setNumberOfColors(static_cast<std::int16_t>(count));
        widget->setView(&list);
        area.show();
        area.resize(area.width() + kWidth - area.viewport()->width(),
                    area.height() + kHeight - area.viewport()->height());
        QApplication::processEvents();
        list.setScrollSize();
        QApplication::processEvents();
    }
    ~ShownList() { widget->setView(nullptr); }

    ApplicationGuard application;
    std::unique_ptr<FCOStruct[]> records;
    QuietDelegate delegate;
    CSwatchList list{delegate};
    ListScrollArea area;
    ViewWidget* widget = new ViewWidget;
};

class SwatchModel : public QAbstractListModel {
  public:
    explicit SwatchModel(int count) : count_(count), records_(swatches(count)) {}
    int rowCount(const QModelIndex& parent) const override { return parent.isValid() ? 0 : count_; }
    QVariant data(const QModelIndex& index, int role) const override {
        const FCOStruct& record = records_[static_cast<std::size_t>(index.row())];
        if (role == Qt::DisplayRole) return toQt(macRomanToUtf8(nameBytes(record)));
        if (role == Qt::DecorationRole)
            return QColor::fromRgba64(static_cast<quint16>(record.SRed), static_cast<quint16>(record.SGreen),
                                      static_cast<quint16>(record.SBlue));
        return {};
    }

  private:
    int count_;
    std::unique_ptr<FCOStruct[]> records_;
};

/// Draws a row as the swatch list does.
class SwatchDelegate : public QStyledItemDelegate {
  public:
    QSize sizeHint(const QStyleOptionViewItem&, const QModelIndex&) const override { return {kWidth, kRow}; }
    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override {
        const QRect patch(option.rect.x() + 5, option.rect.y() + 5, 32, 16);
        painter->fillRect(patch, index.data(Qt::DecorationRole).value<QColor>());
        painter->setPen(Qt::black);
        painter->drawRect(patch.adjusted(0, 0, -1, -1));
        painter->setFont(font_);
        const QString name =
            QFontMetricsF(font_).elidedText(index.data().toString(), Qt::ElideRight, kWidth - 32);
        painter->drawText(QPointF(option.rect.x() + 42, option.rect.y() + 18), name);
        if (!(option.state & QStyle::State_Selected)) return;
        painter->setPen(Qt::blue);
        painter->drawRect(option.rect.adjusted(4, 4, -2, 0));
    }

  private:
    QFont font_ = fontFor({Font::Face::label, 12});
};

/// The same rows in the toolkit's list.
struct ShownListView : Offscreen {
    explicit ShownListView(int count) : model(count) {
        view.setModel(&model);
        view.setItemDelegate(&delegate);
        view.setUniformItemSizes(true);
        view.setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
        view.setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
        view.setCurrentIndex(model.index(0));
        view.resize(kWidth + 30, kHeight + 4);
        view.show();
        view.resize(view.width() + kWidth - view.viewport()->width(),
                    view.height() + kHeight - view.viewport()->height());
        QApplication::processEvents();
    }

    ApplicationGuard application;
    SwatchModel model;
    SwatchDelegate delegate;
    QListView view;
};

class BlitWidget : public QWidget {
  public:
    QPixmap picture{kWidth, kHeight};

  protected:
    void paintEvent(QPaintEvent*) override { QPainter(this).drawPixmap(0, 0, picture); }
};

void blit(benchmark::State& state) {
    const Offscreen offscreen;
    const ApplicationGuard application;
    BlitWidget widget;
    widget.picture.fill(Qt::darkCyan);
    widget.resize(kWidth, kHeight);
    widget.show();
    QApplication::processEvents();
    for (auto _ : state)
        widget.repaint();
}

void repaintList(benchmark::State& state) {
    ShownList shown(static_cast<int>(state.range(0)));
    if (shown.area.viewport()->size() != QSize(kWidth, kHeight)) state.SkipWithError("not the size");
    for (auto _ : state)
        shown.widget->repaint();
}

void repaintListView(benchmark::State& state) {
    ShownListView shown(static_cast<int>(state.range(0)));
    if (shown.view.viewport()->size() != QSize(kWidth, kHeight)) state.SkipWithError("not the size");
    for (auto _ : state)
        shown.view.viewport()->repaint();
}

/// One row down at a time, from the top to the bottom and again.
void scrollBy(QScrollBar& bar) {
    bar.setValue(bar.value() + kRow <= bar.maximum() ? bar.value() + kRow : 0);
    QApplication::processEvents();
}

void scrollList(benchmark::State& state) {
    ShownList shown(static_cast<int>(state.range(0)));
    for (auto _ : state)
        scrollBy(*shown.area.verticalScrollBar());
}

void scrollListView(benchmark::State& state) {
    ShownListView shown(static_cast<int>(state.range(0)));
    for (auto _ : state)
        scrollBy(*shown.view.verticalScrollBar());
}

BENCHMARK(blit);
#define AT_ALL_COUNTS ->Arg(10)->Arg(100)->Arg(1000)->Arg(4999)
BENCHMARK(repaintList)->Arg(50) AT_ALL_COUNTS;
BENCHMARK(repaintListView) AT_ALL_COUNTS;
BENCHMARK(scrollList) AT_ALL_COUNTS;
BENCHMARK(scrollListView) AT_ALL_COUNTS;

} // namespace
} // namespace chromalog
