/* Included before every source file for macOS: the fetched compiler takes its C++ library along and therefore hides
 * since which system each part of it exists. On a Mac the system's own library is linked, so it matters. */
#undef _LIBCPP_DISABLE_AVAILABILITY
#undef _LIBCPP_HAS_NO_VENDOR_AVAILABILITY_ANNOTATIONS
