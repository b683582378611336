# Reads frame/entry_points.txt, the table of the library's entry points, and
# generates from it what the build needs, so that the table is the only list:
#   entry_point_table.inc    QUELCNV_ENTRY(name, result, "arguments", state, "output", "help") rows
#   entry_points.cpp         the C entry points, each handing its arguments to
#                            its conversion (frame/conversion.h); the sample
#                            entry point, which writes into its argument, is
#                            written by hand
#   quelcnv.def              the module definition of the Windows DLL (bare names)
#   quelcnv-stdcall.def      the same for 32-bit Windows, naming the decorated
#                            symbols (name@bytes) that the linker exports bare
#   quelcnv.idl              the type library: the module MyDllFunctions with
#                            every entry point, and the enumeration RotateDirection

set(_quelcnv_idl_template "${CMAKE_CURRENT_LIST_DIR}/../frame/quelcnv.idl.in")
set(_quelcnv_api_header "${CMAKE_CURRENT_LIST_DIR}/../include/quelcnv_api.h")

# C type and IDL declaration of an argument, by its name (the type library's names).
function(_quelcnv_argument name c_type_var idl_var)
  if(name STREQUAL "selec")
    set(c_type "int")
    set(idl "[in] int")
  elseif(name STREQUAL "sMyString")
    set(c_type "char*")
    set(idl "[in, out] LPSTR")
  else()
    set(c_type "const char*")
    set(idl "[in] LPSTR")
  endif()
  set(${c_type_var} "${c_type}" PARENT_SCOPE)
  set(${idl_var} "${idl} ${name}" PARENT_SCOPE)
endfunction()

function(_quelcnv_c_string text out_var)
  string(REPLACE "\\" "\\\\" text "${text}")
  string(REPLACE "\"" "\\\"" text "${text}")
  set(${out_var} "\"${text}\"" PARENT_SCOPE)
endfunction()

# Writes a file only when its content changes, so that a new configure run
# rebuilds nothing that did not change.
function(_quelcnv_write_if_changed path content)
  if(EXISTS "${path}")
    file(READ "${path}" old)
    if(old STREQUAL content)
      return()
    endif()
  endif()
  file(WRITE "${path}" "${content}")
endfunction()

# The entry point of one row: its arguments as the host passes them, handed
# to the conversion of the same name.
function(_quelcnv_export name result argument_names out_var)
  set(parameters "")
  set(passed "")
  foreach(argument IN LISTS argument_names)
    _quelcnv_argument("${argument}" type declaration)
    list(APPEND parameters "${type} ${argument}")
    list(APPEND passed "argumentOf(${argument})")
  endforeach()
  list(JOIN parameters ", " parameters)
  list(JOIN passed ", " passed)
  if(result STREQUAL "int")
    set(body "    return enterConversion(\"${name}\", {${passed}});\n")
    set(type "int")
  else()
    set(body "    enterConversion(\"${name}\", {${passed}});\n")
    set(type "void")
  endif()
  set(${out_var} "QUELCNV_API ${type} QUELCNV_CALL MyDll_${name}(${parameters}) {\n${body}}\n\n"
      PARENT_SCOPE)
endfunction()

function(quelcnv_generate_entry_points table out_dir)
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${table}")
  file(STRINGS "${table}" lines ENCODING UTF-8)
  set(rows "")
  set(def "LIBRARY quelcnv\nEXPORTS\n")
  set(stdcall_def "LIBRARY quelcnv\nEXPORTS\n")
  set(idl_functions "")
  set(exports "")
  set(count 0)
  foreach(line IN LISTS lines)
    if(line MATCHES "^#" OR line STREQUAL "")
      continue()
    endif()
    string(REPLACE " | " ";" fields "${line}")
    list(LENGTH fields field_count)
    if(NOT field_count EQUAL 6)
      message(FATAL_ERROR "entry_points.txt: malformed line: ${line}")
    endif()
    list(GET fields 0 name)
    list(GET fields 1 result)
    list(GET fields 2 arguments)
    list(GET fields 3 state)
    list(GET fields 4 output)
    list(GET fields 5 help)
    if(NOT result MATCHES "^(int|none)$" OR NOT state MATCHES "^(built|readsOnly|unavailable)$"
       OR NOT output MATCHES "^(-|\\.[a-z]+)$")
      message(FATAL_ERROR "entry_points.txt: bad result, state or output: ${line}")
    endif()
    _quelcnv_c_string("${arguments}" arguments_text)
    _quelcnv_c_string("${help}" help_text)
    if(output STREQUAL "-")
      set(output "")
    endif()
    string(APPEND rows
      "QUELCNV_ENTRY(${name}, ${result}, ${arguments_text}, ${state}, \"${output}\", ${help_text})\n")
    string(APPEND def "    MyDll_${name}\n")
    string(REPLACE " " ";" argument_names "${arguments}")
    list(LENGTH argument_names argument_count)
    math(EXPR argument_bytes "4 * ${argument_count}")
    string(APPEND stdcall_def "    MyDll_${name}@${argument_bytes}\n")
    set(idl_arguments "")
    foreach(argument IN LISTS argument_names)
      _quelcnv_argument("${argument}" type declaration)
      list(APPEND idl_arguments "${declaration}")
    endforeach()
    list(JOIN idl_arguments ", " idl_arguments)
    if(result STREQUAL "int")
      set(idl_result "int")
    else()
      set(idl_result "void")
    endif()
    string(APPEND idl_functions
      "        [entry(\"MyDll_${name}\"), helpstring(${help_text})]\n"
      "        ${idl_result} __stdcall MyDll_${name}(${idl_arguments});\n")
    math(EXPR count "${count} + 1")
    if(NOT name STREQUAL "ReverseString")
      _quelcnv_export("${name}" "${result}" "${argument_names}" export)
      string(APPEND exports "${export}")
    endif()
  endforeach()
  if(NOT count EQUAL 60)
    message(FATAL_ERROR "entry_points.txt lists ${count} entry points instead of 60")
  endif()

  # The public API's functions, as its header declares them, leave the DLL
  # under their own names beside the entry points.
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${_quelcnv_api_header}")
  file(READ "${_quelcnv_api_header}" api_text)
  string(REGEX MATCHALL "QUELCNV_PUBLIC[^;(]*\\(" declarations "${api_text}")
  foreach(declaration IN LISTS declarations)
    string(REGEX MATCH "quelcnv_[a-z0-9_]+[ \n]*\\($" function "${declaration}")
    string(REGEX REPLACE "[ \n]*\\($" "" function "${function}")
    if(function)
      string(APPEND def "    ${function}\n")
      string(APPEND stdcall_def "    ${function}\n")
    endif()
  endforeach()

  set(banner "// Generated from frame/entry_points.txt by cmake/entry_points.cmake; do not edit.\n")
  _quelcnv_write_if_changed("${out_dir}/entry_point_table.inc" "${banner}${rows}")
  _quelcnv_write_if_changed("${out_dir}/entry_points.cpp"
    "${banner}#include \"frame/conversion.h\"\n#include \"quelcnv.h\"\n\nusing namespace quelcnv;\n\nextern \"C\" {\n\n${exports}}  // extern \"C\"\n")
  _quelcnv_write_if_changed("${out_dir}/quelcnv.def" "${def}")
  _quelcnv_write_if_changed("${out_dir}/quelcnv-stdcall.def" "${stdcall_def}")
  configure_file("${_quelcnv_idl_template}" "${out_dir}/quelcnv.idl" @ONLY)
endfunction()
