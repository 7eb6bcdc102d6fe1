/* The headers' own static assertions are the test; that this file compiles as C11 is the other half. */
#include "abi/basic_suite.h"
#include "abi/buffer_suite.h"
#include "abi/color_services.h"
#include "abi/handle_suite.h"
#include "abi/picker_record.h"
#include "abi/property_suite.h"
#include "abi/result_codes.h"
#include "abi/standalone_suite.h"
#include "abi/ui_hooks_suite.h"

#include "abi/abi_layout.h"

_Static_assert(__STDC_VERSION__ == 201112L, "compiled as C11");

size_t abiLayoutInC(size_t* values, size_t room) {
    return abiLayout(values, room);
}
