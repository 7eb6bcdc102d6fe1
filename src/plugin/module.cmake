# The module: Chromalog.so, or Chromalog.plugin on macOS. It stands beside the program, which looks for it there.
add_library(Chromalog MODULE plugin_main.cpp)
target_link_libraries(Chromalog PRIVATE chromalog_qt)
set_target_properties(Chromalog PROPERTIES PREFIX "" LIBRARY_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/bin)
if(APPLE)
  set(exports ${CMAKE_CURRENT_SOURCE_DIR}/exports.txt)
  set(contents $<TARGET_BUNDLE_CONTENT_DIR:Chromalog>)
  target_link_options(Chromalog PRIVATE -Wl,-exported_symbols_list,${exports})
  set_target_properties(Chromalog PROPERTIES
    BUNDLE TRUE BUNDLE_EXTENSION plugin MACOSX_BUNDLE_INFO_PLIST ${CMAKE_CURRENT_SOURCE_DIR}/Info.plist.in)
  add_custom_command(TARGET Chromalog POST_BUILD
    COMMAND ${CMAKE_COMMAND} -E make_directory ${contents}/Resources
    COMMAND make_rsrc Chromalog PluginMain ${contents}/Resources/Chromalog.rsrc
    COMMAND ${CMAKE_COMMAND} -E copy ${CMAKE_CURRENT_SOURCE_DIR}/PkgInfo ${contents}/PkgInfo VERBATIM)
  install(TARGETS Chromalog LIBRARY DESTINATION lib/chromalog)
else()
  set(exports ${CMAKE_CURRENT_SOURCE_DIR}/exports.map)
  target_link_options(Chromalog PRIVATE -Wl,--no-undefined -Wl,--version-script=${exports})
  set_target_properties(Chromalog PROPERTIES SUFFIX .so)
  install(TARGETS Chromalog LIBRARY DESTINATION lib/chromalog)
endif()
set_target_properties(Chromalog PROPERTIES LINK_DEPENDS ${exports})
