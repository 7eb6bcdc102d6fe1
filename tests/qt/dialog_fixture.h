#pragma once

#include "qt/desktop_fixture.h"

#include "abi/picker_record.h"
#include "dialog/chromalog_controler.h"

#include <memory>

namespace chromalog::test {

/// The whole dialog over an empty record, made where a test's own SetUp asks for it.
class WholeDialogTest : public DesktopTest {
  protected:
    std::unique_ptr<GlobalRecord> record = std::make_unique<GlobalRecord>();
    PickerRecord picker{};
    QtDesktop desktop{settings()};
    std::unique_ptr<ChromalogControler> controler;

    void makeDialog() {
        record->pickerRecord = &picker;
        controler = std::make_unique<ChromalogControler>(*record, desktop);
    }
};

} // namespace chromalog::test
