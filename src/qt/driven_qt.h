#pragma once

#include "qt/driven_dialog.h"

namespace chromalog {

class ChromalogControler;
class QtDesktop;

/// The dialog of a pick, for those who drive it.
class DrivenQt : public DrivenDialog {
  public:
    DrivenQt(QtDesktop& desktop, ChromalogControler& controler) : desktop_(desktop), controler_(controler) {}

    QDialog* window() const override;
    void stopAllLoops() override;
    std::function<Qt::KeyboardModifiers()>& keyboard() override;
    std::function<Qt::DropAction(QDrag&)>& dragLoop() override;
    QFileDialog* filePanel() const override;
    QMessageBox* openAlert() const override;
    std::optional<std::string>& nextPdf() override;
    PrintInfo& sharedPrintInfo() override;
    std::vector<std::string> takeNotWritten() override;
    bool finishWork() override;
    Rect selectedRow(const QWidget& list) const override;
    std::optional<Size> viewSize(const QWidget&) const override;
    Bitmap viewPicture(const QWidget&) override;
    void hostToRgb(std::int16_t space, std::int16_t* components) const override;
    DrivenState state() const override;
    void say(std::string_view line) override;
    void mishap() noexcept override;

  private:
    QtDesktop& desktop_;
    ChromalogControler& controler_;
};

} // namespace chromalog
