# What every target of this tree shares: C++17, its warnings, and how a library is declared.

# cotepe_opcoes(TARGET): the language level and the warnings of this tree.
function(cotepe_opcoes alvo)
  target_compile_features(${alvo} PRIVATE cxx_std_17)
  set_target_properties(${alvo} PROPERTIES CXX_EXTENSIONS OFF)
  if(WIN32)
    target_compile_definitions(${alvo} PRIVATE _POSIX_THREAD_SAFE_FUNCTIONS _WIN32_WINNT=0x0601 NOMINMAX)
  endif()
  target_compile_options(${alvo} PRIVATE -Wall -Wextra -Wpedantic -Wconversion -Wshadow)
  if(COTEPE_WERROR)
    target_compile_options(${alvo} PRIVATE -Werror)
  endif()
endfunction()

# cotepe_biblioteca(NAME SOURCES...): a static library NAME with the alias cotepe::NAME,
# whose headers are found from its own folder, and those of the rooms as "Room/Header.h". Its objects can go into a shared library, which they leave
# without symbols of their own.
function(cotepe_biblioteca nome)
  add_library(${nome} STATIC ${ARGN})
  add_library(cotepe::${nome} ALIAS ${nome})
  target_include_directories(${nome} PUBLIC $<BUILD_INTERFACE:${CMAKE_CURRENT_SOURCE_DIR}>
    $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/Sources>)
  set_target_properties(${nome} PROPERTIES
    POSITION_INDEPENDENT_CODE ON CXX_VISIBILITY_PRESET hidden VISIBILITY_INLINES_HIDDEN ON)
  cotepe_opcoes(${nome})
endfunction()
