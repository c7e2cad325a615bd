# Puts the description of the built-in ERP and its texts into the library. Used in two ways: included, it adds the
# generated source to orv_erp; run as a script (-DOUT=... -DFILES=... -DTEXTS=... -DLIST_TEXTS=...), it writes that source.
if(NOT CMAKE_SCRIPT_MODE_FILE)
    file(GLOB orv_erp_metadata CONFIGURE_DEPENDS "${CMAKE_CURRENT_LIST_DIR}/*.json")
    set(orv_erp_texts "${CMAKE_CURRENT_LIST_DIR}/../resources/texts.json")
    set(orv_erp_list_texts "${CMAKE_CURRENT_LIST_DIR}/../resources/list-texts.json")
    set(orv_erp_embedded "${CMAKE_CURRENT_BINARY_DIR}/erp/Embedded.cpp")
    string(REPLACE ";" "|" orv_erp_files "${orv_erp_metadata}")
    add_custom_command(OUTPUT "${orv_erp_embedded}"
        COMMAND "${CMAKE_COMMAND}" "-DOUT=${orv_erp_embedded}" "-DFILES=${orv_erp_files}" "-DTEXTS=${orv_erp_texts}"
            "-DLIST_TEXTS=${orv_erp_list_texts}" -P "${CMAKE_CURRENT_LIST_FILE}"
        DEPENDS ${orv_erp_metadata} "${orv_erp_texts}" "${orv_erp_list_texts}" "${CMAKE_CURRENT_LIST_FILE}"
        COMMENT "Embedding the description of the sample ERP" VERBATIM)
    target_sources(orv_erp PRIVATE "${orv_erp_embedded}")
    return()
endif()

# The bytes of a file as C++ string literals, in pieces that every compiler takes.
function(quoted result file)
    file(READ "${file}" content HEX)
    string(LENGTH "${content}" length)
    set(bytes "")
    set(start 0)
    while(start LESS length)
        string(SUBSTRING "${content}" ${start} 8000 chunk)
        string(REGEX REPLACE "([0-9a-f][0-9a-f])" "\\\\x\\1" chunk "${chunk}")
        string(APPEND bytes "\n    \"${chunk}\"")
        math(EXPR start "${start} + 8000")
    endwhile()
    set(${result} "${bytes}" PARENT_SCOPE)
endfunction()

string(REPLACE "|" ";" FILES "${FILES}")
list(SORT FILES)
set(source "// Written by Embed.cmake.\n#include \"erp/metadata/Embedded.h\"\n\nnamespace orv::erp {\n\nnamespace {\n")
set(entries "")
set(number 0)
foreach(file IN LISTS FILES)
    get_filename_component(name "${file}" NAME)
    quoted(bytes "${file}")
    string(APPEND source "constexpr char file${number}[] =${bytes};\n")
    string(APPEND entries "    {\"${name}\", {file${number}, sizeof(file${number}) - 1}},\n")
    math(EXPR number "${number} + 1")
endforeach()
quoted(bytes "${TEXTS}")
string(APPEND source "constexpr char texts[] =${bytes};\n")
quoted(bytes "${LIST_TEXTS}")
string(APPEND source "constexpr char listTexts[] =${bytes};\n\nconstexpr EmbeddedFile files[] = {\n${entries}};\n} // namespace\n\n"
    "std::span<const EmbeddedFile> embeddedDescription() { return files; }\n"
    "std::string_view embeddedTexts() { return {texts, sizeof(texts) - 1}; }\n"
    "std::string_view embeddedListTexts() { return {listTexts, sizeof(listTexts) - 1}; }\n\n} // namespace orv::erp\n")
file(WRITE "${OUT}" "${source}")
