# Writes the enumeration Text: a name for each text of TABLE, its value the number of the text.
# cmake -D TABLE=strings_en.ts -D HEADER=Text.h -P TextNames.cmake
file(READ "${TABLE}" table)
string(REPLACE ";" "," table "${table}")
string(REGEX MATCHALL "<message id=\"[0-9]+\">|<extra-name>[A-Za-z]+</extra-name>" parts "${table}")
set(entries "    None = 0,\n")
foreach(part ${parts})
    if(part MATCHES "<message id=\"([0-9]+)\">")
        set(number ${CMAKE_MATCH_1})
    elseif(part MATCHES "<extra-name>(.*)</extra-name>")
        string(APPEND entries "    ${CMAKE_MATCH_1} = ${number},\n")
    endif()
endforeach()
# Leaves an unchanged header alone: rewording a text must not recompile every source.
file(CONFIGURE OUTPUT "${HEADER}" CONTENT "// Generated from the English text table. The names of the texts; a StringTable gives their words.
#pragma once

enum class Text {
${entries}};
" @ONLY)
