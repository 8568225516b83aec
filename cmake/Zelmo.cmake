# How every target of the project is built: warnings, sanitizers, precompiled headers.

# What is handed out is hardened as the distributions ask, and is the same whichever folder it was built in.
set(release "$<CONFIG:Release>")
add_compile_options(
    "$<${release}:-ffile-prefix-map=${PROJECT_SOURCE_DIR}=.>"
    "$<${release}:-fstack-protector-strong>"
    # Some compilers define another level by themselves.
    "$<${release}:-U_FORTIFY_SOURCE;-D_FORTIFY_SOURCE=2>")
add_link_options("$<${release}:LINKER:-z,relro,-z,now>")

add_library(zelmo_options INTERFACE)
target_compile_options(zelmo_options INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsuggest-override
    # GCC 12 takes the unused members of a std::variant for uninitialised values when it optimises.
    $<$<CXX_COMPILER_ID:GNU>:-Wno-maybe-uninitialized>
    $<$<BOOL:${ZELMO_WERROR}>:-Werror>)
target_compile_definitions(zelmo_options INTERFACE
    QT_NO_KEYWORDS            # GLib headers use "signals" as a name
    QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_CAST_FROM_BYTEARRAY
    QT_USE_QSTRINGBUILDER)
target_include_directories(zelmo_options INTERFACE ${PROJECT_SOURCE_DIR}/src)
if(ZELMO_SANITIZERS)
    target_compile_options(zelmo_options INTERFACE
        -fsanitize=${ZELMO_SANITIZERS} -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_link_options(zelmo_options INTERFACE -fsanitize=${ZELMO_SANITIZERS})
    if(CMAKE_CXX_COMPILER_ID STREQUAL GNU AND ZELMO_SANITIZERS MATCHES undefined)
        # Of two sanitizers in libraries of their own, only one learns where it is to report.
        target_link_options(zelmo_options INTERFACE -static-libubsan)
    endif()
    if(ZELMO_SANITIZERS MATCHES thread)
        # The compiler warns of each fence in its own library's headers; the sanitizer doesn't see fences.
        target_compile_options(zelmo_options INTERFACE -Wno-tsan)
    endif()
endif()

# zelmo_library(<name> SOURCES … [PUBLIC …] [PRIVATE …])
# One static library per folder, known to the others as Zelmo::<name>.
function(zelmo_library name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;PUBLIC;PRIVATE")
    add_library(zelmo_${name} STATIC ${arg_SOURCES})
    add_library(Zelmo::${name} ALIAS zelmo_${name})
    target_link_libraries(zelmo_${name} PUBLIC Qt6::Core ${arg_PUBLIC} PRIVATE zelmo_options ${arg_PRIVATE})
    target_precompile_headers(zelmo_${name} PRIVATE ${PROJECT_SOURCE_DIR}/cmake/Precompiled.h)
endfunction()

# What runs a program of a build with sanitizers.
set(ZELMO_LAUNCHER)
if(ZELMO_SANITIZERS)
    set(ZELMO_LAUNCHER ${PROJECT_SOURCE_DIR}/cmake/sanitized)
endif()

# zelmo_test(<name> KIND unit|view|desktop|soak SOURCES … LIBRARIES …)
# One test program per subject. Unit and view tests run without a display.
function(zelmo_test name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "KIND" "SOURCES;LIBRARIES")
    add_executable(${name} ${arg_SOURCES})
    target_link_libraries(${name} PRIVATE zelmo_options Qt6::Test ${arg_LIBRARIES})
    target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR}/tests)
    set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/tests)
    set(timeout 120)
    if(ZELMO_SANITIZERS MATCHES thread)
        target_sources(${name} PRIVATE $<TARGET_OBJECTS:zelmo_seenbythreadsanitizer>)
    endif()
    if(ZELMO_SANITIZERS)
        set(timeout 600)
    endif()
    add_test(NAME ${arg_KIND}.${name} COMMAND ${ZELMO_LAUNCHER} $<TARGET_FILE:${name}>)
    set_tests_properties(${arg_KIND}.${name} PROPERTIES
        LABELS ${arg_KIND}
        TIMEOUT ${timeout}
        ENVIRONMENT "QT_QPA_PLATFORM=offscreen;QT_QUICK_BACKEND=software;LC_ALL=C.UTF-8")
endfunction()

# zelmo_generated_qml(LIBRARY), after qt_add_qml_module for it. What the QML compiler writes is not ours to keep free of
# warnings, and is the same in every folder.
function(zelmo_generated_qml library)
    get_target_property(sources ${library} SOURCES)
    list(FILTER sources INCLUDE REGEX "qmlcache|_qmltyperegistrations")
    set_source_files_properties(${sources} PROPERTIES COMPILE_OPTIONS -w SKIP_LINTING ON)
    set_property(DIRECTORY PROPERTY RULE_LAUNCH_CUSTOM ${PROJECT_SOURCE_DIR}/cmake/resource-command)
endfunction()
