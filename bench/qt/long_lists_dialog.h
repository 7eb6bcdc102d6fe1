// The whole dialog with long lists, in the measuring process.
#pragma once

#include "made_swatches.h"

#include "abi/picker_record.h"
#include "dialog/chromalog_controler.h"
#include "qt/application_guard.h"
#include "qt/qt_desktop.h"
#include "support/temporary_folder.h"

#include <QAbstractButton>
#include <QApplication>
#include <QWidget>

#include <cstdlib>
#include <memory>

namespace chromalog {

/// On the platform that the environment names, or on the one without a screen. Data folder and application
/// object are its own, the latter only where the process has none.
class LongListsDialog {
  public:
    explicit LongListsDialog(int count, ColorServicesProc services = nullptr)
        : record(recordWith(count, count)) {
        picker.colorServices = services;
        record->pickerRecord = &picker;
        QtDesktopSettings settings;
        settings.dataDirectory = folder.path();
        desktop = std::make_unique<QtDesktop>(settings);
        controler = std::make_unique<ChromalogControler>(*record, *desktop);
    }

    QWidget& view(const char* outlet) { return *desktop->widget(outlet); }
    QWidget& window() { return view("chromalogWindow"); }
    void open() {
        window().show();
        paint();
    }
    void showToneChart() {
        qobject_cast<QAbstractButton*>(&view("toneOrDegrade"))->click();
        paint();
    }
    void paint() {
        QApplication::sendPostedEvents();
        QApplication::processEvents();
    }

  private:
    struct Platform {
        Platform() { ::setenv("QT_QPA_PLATFORM", "offscreen", 0); }
    } platform;

  public:
    test::TemporaryFolder folder;
    ApplicationGuard application;
    PickerRecord picker{};
    std::unique_ptr<GlobalRecord> record;
    std::unique_ptr<QtDesktop> desktop;
    std::unique_ptr<ChromalogControler> controler;
};

} // namespace chromalog
