#include "record/host_version.h"

namespace chromalog {

std::int64_t hostVersion(const PropertyProcs* procs) {
    if (!procs || procs->numPropertyProcs < 1 || !procs->getPropertyProc) return 0;
    intptr_t version = 0;
    Handle none = nullptr; // some hosts write to it for any key
    if (procs->getPropertyProc(kHostSignature, propHostVersion, 0, &version, &none) != 0) return 0;
    return version;
}

} // namespace chromalog
