# Import libraries whose DLL loads at the first call into it instead of at process start: a run
# whose tests never call into the DLL never maps it. Made from the toolchain's own import
# library, so they offer the same functions.
find_program(KSTR_DLLTOOL NAMES ${TOOLCHAIN_PREFIX}-dlltool dlltool REQUIRED)

# Defines the imported library <dll>_delayed.
function(kstr_delay_import_library dll)
  find_library(KSTR_IMPORT_LIB_${dll} ${dll} REQUIRED)
  execute_process(COMMAND ${CMAKE_NM} ${KSTR_IMPORT_LIB_${dll}} OUTPUT_VARIABLE symbols COMMAND_ERROR_IS_FATAL ANY)
  string(REGEX MATCHALL "I __imp_[A-Za-z0-9_@?]+" imports "${symbols}")
  list(TRANSFORM imports REPLACE "^I __imp_" "")
  list(REMOVE_DUPLICATES imports)
  if(NOT imports)
    message(FATAL_ERROR "no functions found in ${KSTR_IMPORT_LIB_${dll}}")
  endif()
  list(JOIN imports "\n" exports)
  set(folder ${CMAKE_BINARY_DIR}/delay-imports)
  file(WRITE ${folder}/${dll}.def "LIBRARY ${dll}.dll\nEXPORTS\n${exports}\n")
  set(library ${folder}/lib${dll}_delayed.a)
  add_custom_command(OUTPUT ${library}
    COMMAND ${KSTR_DLLTOOL} --dllname ${dll}.dll --input-def ${folder}/${dll}.def --output-delaylib ${library}
    DEPENDS ${folder}/${dll}.def
    COMMENT "Delay-load import library for ${dll}.dll")
  add_custom_target(${dll}_delayed_library DEPENDS ${library})
  add_library(${dll}_delayed STATIC IMPORTED GLOBAL)
  # The toolchain's library after it, for what it holds beside the imports (GDI+'s cached font
  # families, say); every function is taken from the delayed one first.
  set_target_properties(${dll}_delayed PROPERTIES IMPORTED_LOCATION ${library} INTERFACE_LINK_LIBRARIES ${dll})
  add_dependencies(${dll}_delayed ${dll}_delayed_library)
endfunction()

# GDI+ draws for the click test and the touch tests only; AlphaBlend only for the touch tests.
kstr_delay_import_library(gdiplus)
kstr_delay_import_library(msimg32)
