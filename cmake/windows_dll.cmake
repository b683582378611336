# quelcnv.dll: the entry points exported under their bare names through the
# module definition, and the type library carried as resource TYPELIB 1.
set(_generated ${PROJECT_BINARY_DIR}/generated)
set_target_properties(quelcnv PROPERTIES PREFIX "" OUTPUT_NAME quelcnv)

if(CMAKE_SIZEOF_VOID_P EQUAL 4)
  # The 32-bit compiler decorates each standard-call entry point as
  # _MyDll_name@bytes; the module definition names them so, and the linker
  # exports them without the decoration, as the host looks them up.
  target_sources(quelcnv PRIVATE ${_generated}/quelcnv-stdcall.def)
  target_link_options(quelcnv PRIVATE -Wl,--kill-at)
  # The import library that the linker writes lost the decoration too;
  # programs that link with the DLL (the command) need it, bound to the
  # bare names.
  find_program(QUELCNV_DLLTOOL_PROGRAM NAMES ${QUELCNV_MINGW_TRIPLET}-dlltool REQUIRED)
  add_custom_command(TARGET quelcnv POST_BUILD
    COMMAND ${QUELCNV_DLLTOOL_PROGRAM} --kill-at --dllname quelcnv.dll
            --input-def ${_generated}/quelcnv-stdcall.def
            --output-lib $<TARGET_LINKER_FILE:quelcnv>
    COMMENT "Import library of quelcnv.dll")
  set(_widl_target --win32)
else()
  target_sources(quelcnv PRIVATE ${_generated}/quelcnv.def)
  set(_widl_target --win64)
endif()

# The C++ runtime goes into the DLL, which then needs only system DLLs.
target_link_options(quelcnv PRIVATE -static-libgcc -static-libstdc++)

# widl compiles the type library; its entry names are then written in, as
# widl writes "#" in their place (frame/typelib_entries.py).
find_program(QUELCNV_WIDL_PROGRAM NAMES ${QUELCNV_WIDL} REQUIRED)
find_package(Python3 REQUIRED COMPONENTS Interpreter)
add_custom_command(
  OUTPUT ${_generated}/quelcnv.tlb
  COMMAND ${QUELCNV_WIDL_PROGRAM} ${_widl_target} -t -o ${_generated}/quelcnv.tlb
          ${_generated}/quelcnv.idl
  COMMAND Python3::Interpreter ${PROJECT_SOURCE_DIR}/frame/typelib_entries.py
          ${_generated}/quelcnv.tlb
  DEPENDS ${_generated}/quelcnv.idl ${PROJECT_SOURCE_DIR}/frame/typelib_entries.py
  COMMENT "Type library quelcnv.tlb")
enable_language(RC)
configure_file(${PROJECT_SOURCE_DIR}/frame/quelcnv.rc.in ${_generated}/quelcnv.rc @ONLY)
set_source_files_properties(${_generated}/quelcnv.rc PROPERTIES
  OBJECT_DEPENDS ${_generated}/quelcnv.tlb)
target_sources(quelcnv PRIVATE ${_generated}/quelcnv.rc)
target_include_directories(quelcnv PRIVATE ${_generated})
