# The VST3 and CLAP editions: the same adapter compiled with the framework's VST3 and CLAP wrappers.
# The framework's dpf_add_plugin knows no CLAP target in this version, so both editions are put together
# from the helpers it is made of: a module, the format's definition that selects the framework's wrappers
# (plug-in and UI), and the format's list of exported symbols.
set(DPF_ROOT_DIR "${DPF_ROOT}")
include("${DPF_ROOT}/cmake/DPF-plugin.cmake")

# FORMAT is vst3 or clap; the other arguments are the module's sources besides the adapter and its editor.
function(spatara_add_dpf_edition TARGET FORMAT)
    dpf__add_module(${TARGET} SpataraDpfPlugin.cpp SpataraDpfUI.cpp ${ARGN})
    dpf__add_plugin_target_definition(${TARGET} ${FORMAT})
    dpf__add_ui_main(${TARGET} ${FORMAT} TRUE)
    dpf__set_module_export_list(${TARGET} ${FORMAT})
    target_include_directories(${TARGET} PRIVATE ${CMAKE_CURRENT_SOURCE_DIR})
    target_include_directories(${TARGET} SYSTEM PRIVATE ${DPF_DISTRHO} ${DPF_DISTRHO}/src)
    target_link_libraries(${TARGET} PRIVATE spatara_effect spatara_version dl)
    # The wrappers name one class of the window layer (the CLAP one's idle callback): the editor's, so the
    # module holds no name of a second window layer.
    target_compile_definitions(${TARGET} PRIVATE DGL_NAMESPACE=SpataraDGL DONT_SET_USING_DGL_NAMESPACE)
    target_link_options(${TARGET} PRIVATE $<$<NOT:$<BOOL:${SPATARA_BUILD_FUZZ}>>:-Wl,--no-undefined>
                        -static-libstdc++ -static-libgcc)
    set_target_properties(${TARGET} PROPERTIES PREFIX "" OUTPUT_NAME "Spatara")
endfunction()

# Spatara.vst3/Contents/x86_64-linux/Spatara.so, the layout VST3 hosts look for.
dpf__determine_vst3_package_architecture(vst3_arch)
set(SPATARA_VST3_ARCH "${vst3_arch}" CACHE INTERNAL "The VST3 bundle's name for this machine's architecture")
set(SPATARA_VST3_BUNDLE "${PROJECT_BINARY_DIR}/vst3/Spatara.vst3" CACHE INTERNAL "The VST3 bundle in the build tree")
# Its factory entry is ours, around the framework's.
spatara_add_dpf_edition(Spatara_vst3 vst3 Vst3Framework.cpp Vst3Entry.cpp)
set_source_files_properties(Vst3Framework.cpp PROPERTIES COMPILE_OPTIONS -w)
set_target_properties(Spatara_vst3 PROPERTIES
    LIBRARY_OUTPUT_DIRECTORY "${SPATARA_VST3_BUNDLE}/Contents/${SPATARA_VST3_ARCH}-linux")

# Spatara.clap, one file. Its entry point is ours, around the framework's.
set(SPATARA_CLAP_FILE "${PROJECT_BINARY_DIR}/clap/Spatara.clap" CACHE INTERNAL "The CLAP plug-in in the build tree")
spatara_add_dpf_edition(Spatara_clap clap ClapFramework.cpp ClapEntry.cpp)
set_source_files_properties(ClapFramework.cpp PROPERTIES COMPILE_OPTIONS -w)
set_target_properties(Spatara_clap PROPERTIES SUFFIX ".clap" LIBRARY_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/clap")
