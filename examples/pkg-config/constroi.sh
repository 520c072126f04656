#!/bin/sh
# Hosts built with pkg-config and a compiler: constroi.sh FOLDER makes there `compartilhada`, in C over the
# shared library, and `hospedeiro`, in C++ over the classes of the static one.
set -eu
exemplos=$(dirname "$0")/..
# shellcheck disable=SC2046,SC2086
{
  ${CC:-cc} ${CFLAGS:-} ${LDFLAGS:-} -o "$1/compartilhada" "$exemplos/c/main.c" $(pkg-config --cflags --libs cotepe sqlite3)
  ${CXX:-c++} ${CXXFLAGS:-} ${LDFLAGS:-} -std=c++17 -o "$1/hospedeiro" "$exemplos/hospedeiro/main.cpp" \
    "$exemplos/hospedeiro/Aplicativo.cpp" $(pkg-config --cflags --libs cotepe-static)
}
