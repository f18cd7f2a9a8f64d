# Checks that every name in the views is known. Run as:
#   cmake -DQMLLINT=<program> -DQT_TYPES=<Qt's QML folder> -DMODULES=<described modules> -DVIEWS=<folder> -P qmllint.cmake

cmake_minimum_required(VERSION 3.25)
file(GLOB views "${VIEWS}/*.qml")
set(faults 0)

# Some warnings of qmllint 6.4 are wrong here. A content item with an id is made at once, but that is always so. The
# others are about members of Qt that it does not know.
execute_process(COMMAND "${QMLLINT}" --deferred-property-id disable --unused-imports warning -I "${MODULES}" ${views}
                OUTPUT_VARIABLE report ERROR_VARIABLE report RESULT_VARIABLE result)
set(none "Property \"callLater\" is a QJSValue property|Type \"qlonglong\" of property \"(position|duration)\" not found")
string(REPLACE ";" "," report "${report}")
string(REGEX MATCHALL "[^\n]+\\.qml:[0-9]+:[^\n]+" lines "${report}")
foreach(line IN LISTS lines)
    if(NOT line MATCHES "^Info: |: (${none})")
        message("${line}")
        math(EXPR faults "${faults} + 1")
    endif()
endforeach()

# qmllint does not check functions without types (`event => ...`) and handlers in Connections. So this checks that each
# name after a dot is a member of some type, and that each handler belongs to some signal.
set(known "")
file(GLOB_RECURSE types "${MODULES}/*.qmltypes" "${QT_TYPES}/*.qmltypes")
list(FILTER types EXCLUDE REGEX "/Qt/labs/|/QtQuick/Controls/")
foreach(file IN LISTS types)
    file(READ "${file}" described)
    string(REGEX MATCHALL "\"[A-Za-z_]+[A-Za-z0-9_]*\"|/[A-Za-z_]+ [0-9]" names "${described}") # members, types
    list(APPEND known ${names})
endforeach()
foreach(view IN LISTS views)
    file(READ "${view}" text)
    string(REGEX MATCHALL "(function|signal|property [A-Za-z.<>]+|property) +[A-Za-z_]+" declared "${text}")
    string(REGEX REPLACE "[^;]* " "" declared "${declared}")
    list(APPEND known ${declared})
endforeach()
string(REGEX REPLACE "\"|/| [0-9]" "" known "${known}")
list(REMOVE_DUPLICATES known)
foreach(view IN LISTS views)
    file(READ "${view}" text)
    string(REGEX REPLACE "//[^\n]*|\"[^\"\n]*\"|import [^\n]*" "" text "${text}")
    string(REGEX MATCHALL "\\.[A-Za-z_]+[A-Za-z0-9_]*|function on[A-Za-z]+" names "${text}")
    string(REGEX REPLACE "[^;]*\\." "" names "${names}")
    list(REMOVE_DUPLICATES names)
    foreach(name IN LISTS names)
        if(name MATCHES "^function on(.)(.*)")
            string(TOLOWER "${CMAKE_MATCH_1}" first)
            set(name "${first}${CMAKE_MATCH_2}")
        endif()
        # The signal for a change of a property, and the handler of a signal.
        string(REGEX REPLACE "^(.+)Changed$" "\\1" property "${name}")
        string(REGEX REPLACE "^on.*$" "on" handler "${name}") # checked by qmllint
        if(NOT name IN_LIST known AND NOT property IN_LIST known AND NOT handler STREQUAL "on")
            message("${view}: no type has a member ${name}")
            math(EXPR faults "${faults} + 1")
        endif()
    endforeach()
endforeach()

list(LENGTH views count)
list(LENGTH known members)
if(faults GREATER 0 OR count EQUAL 0 OR members LESS 1000 OR NOT result MATCHES "^[0-9]+$")
    message(FATAL_ERROR "${faults} faults in ${count} views, ${members} members are known; qmllint: ${result}")
endif()
message("${count} views, every name is known")
