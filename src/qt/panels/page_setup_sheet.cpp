#include "qt/panels/page_setup_sheet.h"

#include "qt/mishap.h"

#include <QComboBox>
#include <QDialog>
#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QFormLayout>
#include <QPageSize>

#include <cmath>

namespace chromalog {

namespace {

constexpr QPageSize::PageSizeId papers[] = {QPageSize::A3,     QPageSize::A4,    QPageSize::A5,
                                            QPageSize::Letter, QPageSize::Legal, QPageSize::Tabloid};

class PageSetupSheet : public QDialog {
  public:
    PageSetupSheet(PrintInfo& info, QWidget* window) : QDialog(window), info_(info) {
        setObjectName("qt_pageSetup");
        setWindowTitle(tr("Page Setup"));
        setWindowModality(Qt::WindowModal);
        setAttribute(Qt::WA_DeleteOnClose);
        auto* form = new QFormLayout(this);
        fillPapers();
        form->addRow(tr("Paper:"), paper_);
        orientation_->addItems({tr("Portrait"), tr("Landscape")});
        orientation_->setCurrentIndex(info.paper.w > info.paper.h);
        form->addRow(tr("Orientation:"), orientation_);
        form->addRow(tr("Left margin:"), addLength(left_, "left", info.left));
        form->addRow(tr("Right margin:"), addLength(right_, "right", info.right));
        form->addRow(tr("Top margin:"), addLength(top_, "top", info.top));
        form->addRow(tr("Bottom margin:"), addLength(bottom_, "bottom", info.bottom));
        scale_->setRange(10, 1000);
        scale_->setDecimals(0);
        scale_->setSuffix(" %");
        scale_->setValue(info.scale * 100.0);
        form->addRow(tr("Scale:"), scale_);
        auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
        connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
        connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
        form->addRow(buttons);
    }

    void accept() override try {
        const QSizeF size = paper_->currentData().toSizeF();
        const bool landscape = orientation_->currentIndex() == 1;
        info_.paper = landscape ? Size{size.height(), size.width()} : Size{size.width(), size.height()};
        info_.left = left_->value();
        info_.right = right_->value();
        info_.top = top_->value();
        info_.bottom = bottom_->value();
        info_.scale = scale_->value() / 100.0;
        QDialog::accept();
    } catch (...) {
        mishap();
    }

  private:
    /// The named papers, and the present one where it is none of them: accepted as it is, it stays as it is.
    /// Sizes in points, portrait.
    void fillPapers() {
        const QSizeF now(std::min(info_.paper.w, info_.paper.h), std::max(info_.paper.w, info_.paper.h));
        int present = -1;
        for (const QPageSize::PageSizeId id : papers) {
            const QSizeF size = QPageSize::size(id, QPageSize::Point), off = size - now;
            const bool same = std::abs(off.width()) < 1 && std::abs(off.height()) < 1;
            if (same) present = paper_->count();
            paper_->addItem(QPageSize::name(id), same ? now : size);
        }
        if (present < 0) {
            present = paper_->count();
            paper_->addItem(tr("%1 × %2 points").arg(now.width()).arg(now.height()), now);
        }
        paper_->setCurrentIndex(present);
    }

    QDoubleSpinBox* addLength(QDoubleSpinBox* box, const char* name, double points) {
        box->setObjectName(name);
        box->setRange(0, 1000);
        box->setDecimals(1);
        box->setSuffix(tr(" pt"));
        box->setValue(points);
        return box;
    }

    PrintInfo& info_;
    QComboBox* paper_ = new QComboBox(this);
    QComboBox* orientation_ = new QComboBox(this);
    QDoubleSpinBox* left_ = new QDoubleSpinBox(this);
    QDoubleSpinBox* right_ = new QDoubleSpinBox(this);
    QDoubleSpinBox* top_ = new QDoubleSpinBox(this);
    QDoubleSpinBox* bottom_ = new QDoubleSpinBox(this);
    QDoubleSpinBox* scale_ = new QDoubleSpinBox(this);
};

} // namespace

void openPageSetup(PrintInfo& info, QWidget* window) {
    (new PageSetupSheet(info, window))->open();
}

} // namespace chromalog
