#include "host/globals.h"

namespace chromalog {

GlobalRecord* gData = nullptr;
SPBasicSuite* sSPBasic = nullptr;
ChromalogControler* gChromalogControler = nullptr;
ProtocolControler* gProtocolController = nullptr;
PrintOptionController* gPrintOptionController = nullptr;

} // namespace chromalog
