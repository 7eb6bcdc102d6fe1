#pragma once

#include "abi/picker_record.h"
#include "abi/standalone_suite.h"

#include <cstdint>

namespace chromalog::standalone {

/// The tables of C functions that the plug-in is given; each function forwards to Host::current().
HandleProcs* handleProcs();
BufferProcs* bufferProcs();
PropertyProcs* propertyProcs();
SPBasicSuite* basicSuite();
void processEventCallback(void* event);
std::int16_t colourServicesCallback(ColorServicesInfo* info);

const PSBufferSuite1* bufferSuite1();
const PSBufferSuite2* bufferSuite2();
/// Version 1 to 4: fields of later versions are null.
const PSUIHooksSuite* uiHooksSuite(int version);
/// Version 3, which begins with the earlier ones.
const StandaloneSuite3* standaloneSuite();

} // namespace chromalog::standalone
