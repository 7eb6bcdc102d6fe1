#include "qt/panels/page_setup_sheet.h"

#include "base/translated.h"
#include "qt/convert.h"
#include "qt/mishap.h"

#include <QComboBox>
#include <QDialog>
#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QFormLayout>
#include <QPageSize>

#include <cmath>
#include <vector>

namespace chromalog {

namespace {

constexpr QPageSize::PageSizeId papers[] = {QPageSize::A3,     QPageSize::A4,    QPageSize::A5,
                                            QPageSize::Letter, QPageSize::Legal, QPageSize::Tabloid};

class PageSetupSheet : public QDialog {
  public:
    PageSetupSheet(PrintInfo& info, LengthUnit unit, QWidget* window)
        : QDialog(window), info_(info), unit_(shownUnit(unit)) {
        setObjectName("qt_pageSetup");
        setWindowTitle(toQt(translated("Page Setup")));
        setWindowModality(Qt::WindowModal);
        setAttribute(Qt::WA_DeleteOnClose);
        auto* form = new QFormLayout(this);
        fillPapers();
        form->addRow(toQt(translated("Paper:")), paper_);
        orientation_->addItems({toQt(translated("Portrait")), toQt(translated("Landscape"))});
        orientation_->setCurrentIndex(info.paper.w > info.paper.h);
        form->addRow(toQt(translated("Orientation:")), orientation_);
        form->addRow(toQt(translated("Left margin:")), addLength("left", info.left));
        form->addRow(toQt(translated("Right margin:")), addLength("right", info.right));
        form->addRow(toQt(translated("Top margin:")), addLength("top", info.top));
        form->addRow(toQt(translated("Bottom margin:")), addLength("bottom", info.bottom));
        scale_ = new QDoubleSpinBox(this); // Tab follows the order in which they are made
        scale_->setRange(10, 1000);
        scale_->setDecimals(0);
        scale_->setSuffix(" %");
        scale_->setValue(info.scale * 100.0);
        form->addRow(toQt(translated("Scale:")), scale_);
        auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
        connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
        connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
        form->addRow(buttons);
    }

    void accept() override try {
        const QSizeF size = paper_->currentData().toSizeF();
        const bool landscape = orientation_->currentIndex() == 1;
        info_.paper = landscape ? Size{size.height(), size.width()} : Size{size.width(), size.height()};
        for (const Length& length : lengths_)
            if (length.box->value() != length.offered) *length.points = length.box->value() * unit_.points;
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
            paper_->addItem(QString("%1 × %2 %3").arg(inUnit(now.width()), inUnit(now.height()), unit_.name),
                            now);
        }
        paper_->setCurrentIndex(present);
    }

    /// A length in the settings, and what its box offered: rounded, and perhaps in another unit.
    struct Length {
        double* points;
        QDoubleSpinBox* box;
        double offered;
    };

    QDoubleSpinBox* addLength(const char* name, double& points) {
        constexpr double most = 1000; // points
        auto* box = new QDoubleSpinBox(this);
        box->setObjectName(name);
        box->setDecimals(unit_.decimals);
        box->setRange(0, most / unit_.points);
        box->setSingleStep(unit_.step);
        box->setSuffix(QString(" %1").arg(unit_.name));
        box->setValue(points / unit_.points);
        lengths_.push_back({&points, box, box->value()});
        return box;
    }

    QString inUnit(double points) const {
        return locale().toString(points / unit_.points, 'f', unit_.decimals);
    }

    PrintInfo& info_;
    const ShownUnit& unit_;
    std::vector<Length> lengths_;
    QComboBox* paper_ = new QComboBox(this);
    QComboBox* orientation_ = new QComboBox(this);
    QDoubleSpinBox* scale_ = nullptr;
};

} // namespace

void openPageSetup(PrintInfo& info, LengthUnit unit, QWidget* window) {
    (new PageSetupSheet(info, unit, window))->open();
}

} // namespace chromalog
