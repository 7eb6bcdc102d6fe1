#include "dialog/globals.h"

#include "history/protocol_controler.h"
#include "print/print_option_controller.h"

namespace chromalog {

GlobalRecord* gData = nullptr;
SPBasicSuite* sSPBasic = nullptr;
ChromalogControler* gChromalogControler = nullptr;
ProtocolControler* gProtocolController = nullptr;
PrintOptionController* gPrintOptionController = nullptr;

ProtocolControler* ProtocolControler::protocolController() {
    return gProtocolController;
}

PrintOptionController* PrintOptionController::printOptionController() {
    return gPrintOptionController;
}

} // namespace chromalog
