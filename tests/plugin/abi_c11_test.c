/* The headers' own static assertions are the test; that this file compiles as C11 is the other half. */
#include "host/abi/basic_suite.h"
#include "host/abi/buffer_suite.h"
#include "host/abi/color_services.h"
#include "host/abi/handle_suite.h"
#include "host/abi/picker_record.h"
#include "host/abi/property_suite.h"
#include "host/abi/result_codes.h"
#include "host/abi/standalone_suite.h"
#include "host/abi/ui_hooks_suite.h"

#include "plugin/abi_layout.h"

_Static_assert(__STDC_VERSION__ == 201112L, "compiled as C11");

size_t abiLayoutInC(size_t* values, size_t room) {
    return abiLayout(values, room);
}
