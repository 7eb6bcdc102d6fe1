#pragma once

struct SPBasicSuite;

namespace chromalog {

struct GlobalRecord;
class ChromalogControler;
class ProtocolControler;
class PrintOptionController;

/// The process-wide pointers, read by the pick and the controllers alone. Null outside a pick,
/// apart from sSPBasic.
extern GlobalRecord* gData;
extern SPBasicSuite* sSPBasic;
extern ChromalogControler* gChromalogControler;
extern ProtocolControler* gProtocolController;
extern PrintOptionController* gPrintOptionController;

} // namespace chromalog
