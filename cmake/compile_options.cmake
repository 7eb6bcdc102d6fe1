# Fused multiply-add would change the last bits of the harmony points: off everywhere.
add_compile_options(-ffp-contract=off -Wall -Wextra -Wpedantic)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  # A unique symbol would keep the module mapped after dlclose.
  add_compile_options($<$<COMPILE_LANGUAGE:CXX>:-fno-gnu-unique>)
endif()
# A release is built small: a quarter of what is resident beside the toolkit would be code otherwise, and less is to
# map before the window shows.
add_compile_options($<$<CONFIG:Release>:-Os>)
# built_for_speed(TARGET file...): but for what a person waits for with every movement, or with a long list.
function(built_for_speed target)
  set_source_files_properties(${ARGN} TARGET_DIRECTORY ${target} PROPERTIES
    COMPILE_OPTIONS $<$<CONFIG:Release>:-O3> SKIP_PRECOMPILE_HEADERS ON)
endfunction()
if(CHROMALOG_SANITIZE)
  # -O1 and lines alone: findings name their places, and the build takes half the time.
  add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer -O1 -g1)
  add_link_options(-fsanitize=address,undefined)
  # For programs that load the plug-in: what is known of the libraries' own leaks.
  add_library(leaks_of_libraries OBJECT ${CMAKE_CURRENT_LIST_DIR}/leaks_of_libraries.c)
  # libgomp, which the toolkit pulls in, keeps 8 bytes: a leak where unloading the plug-in takes the library along.
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    add_link_options(-Wl,--push-state,--no-as-needed,-l:libgomp.so.1,--pop-state)
  endif()
elseif(CMAKE_SYSTEM_NAME STREQUAL "Linux")
  # Hardening: files from anywhere are read in the host's process.
  include(CheckCXXCompilerFlag)
  check_cxx_compiler_flag(-fcf-protection CHROMALOG_HAS_CF_PROTECTION) # x86 alone
  set(optimised $<NOT:$<CONFIG:Debug>>) # checked calls need an optimising compiler
  add_compile_options(-fstack-protector-strong $<${optimised}:-U_FORTIFY_SOURCE> $<${optimised}:-D_FORTIFY_SOURCE=2>
    $<$<BOOL:${CHROMALOG_HAS_CF_PROTECTION}>:-fcf-protection>)
  add_link_options(-Wl,-z,relro -Wl,-z,now -Wl,-z,noexecstack)
endif()
if(NOT CHROMALOG_SANITIZE)
  # What tells debuggers of sources names no folder of whoever built it. A plain release holds no path at all.
  set(with_symbols $<CONFIG:RelWithDebInfo,MinSizeRel>)
  add_compile_options($<${with_symbols}:-ffile-prefix-map=${PROJECT_SOURCE_DIR}=.>
    $<${with_symbols}:-ffile-prefix-map=${PROJECT_BINARY_DIR}=./build>)
endif()
