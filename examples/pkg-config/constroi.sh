#!/bin/sh
# Hosts built with pkg-config and a compiler: constroi.sh FOLDER makes there `compartilhada` and `estatica`, in C over
# each library, `objeto`, in C++ over the static one, `hospedeiro`, over the class with the application's own
# services, and `minimo`, over the class with the plain ones.
set -eu
exemplos=$(dirname "$0")/..
# shellcheck disable=SC2046,SC2086
{
  opcoes="${CFLAGS:-} ${LDFLAGS:-}"
  ${CC:-cc} $opcoes -o "$1/compartilhada" "$exemplos/c/main.c" $(pkg-config --cflags --libs cotepe)
  ${CC:-cc} $opcoes -o "$1/estatica" "$exemplos/c/main.c" $(pkg-config --cflags --libs cotepe-static)

  opcoes="${CXXFLAGS:-} ${LDFLAGS:-} -std=c++17"
  unidade=$(pkg-config --variable=unit cotepe-static)
  ${CXX:-c++} $opcoes -o "$1/objeto" "$exemplos/objeto/main.cpp" $(pkg-config --cflags --libs cotepe-static)
  ${CXX:-c++} $opcoes -o "$1/hospedeiro" -I"$exemplos/hospedeiro" "$exemplos/hospedeiro/main.cpp" \
    "$exemplos/hospedeiro/Aplicativo.cpp" "$unidade" $(pkg-config --cflags --libs cotepe-static)
  ${CXX:-c++} $opcoes -o "$1/minimo" "$exemplos/minimo/main.cpp" "$unidade" $(pkg-config --cflags --libs cotepe-host)
}
