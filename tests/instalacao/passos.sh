#!/bin/sh
# The steps of the tests of the installed package, one a call: passos.sh STEP, with the settings of CMakeLists.txt
# in the environment. Examples are copied out of the tree and see of it the prefix alone.
set -eu
aqui=$(dirname "$0")
. "$aqui/exemplos.sh"

falha() { echo "$*" >&2; exit 1; }
pula() { echo "skipped: $*"; exit 77; }

# pasta_nova NAME: an empty folder of the step's own.
pasta_nova() { rm -rf "$1" && mkdir "$1" && cd "$1"; }

arquivos_de() { (cd "$1" && find . ! -type d | LC_ALL=C sort); }

# The program is installed as it was built, so it stands for what the examples must write.
instala() {
  rm -rf "$PREFIXO"
  cmake --install "$CONSTRUCAO" --prefix "$PREFIXO" >instala.txt
  for arquivo in bin/cotepe include/cotepe/cotepe.h include/cotepe/Leiaute/Execucao.h "$BIBLIOTECAS/libcotepe.a" \
    "$BIBLIOTECAS/libcotepe_host.a" "$BIBLIOTECAS/libcotepe.so.$VERSAO" \
    "$BIBLIOTECAS/cmake/cotepe/cotepeConfig.cmake" "$BIBLIOTECAS/pkgconfig/cotepe.pc"; do
    [ -f "$PREFIXO/$arquivo" ] || falha "not installed: $arquivo"
  done
  [ "$(readlink "$PREFIXO/$BIBLIOTECAS/libcotepe.so")" = "libcotepe.so.$SOVERSAO" ] || falha "libcotepe.so"
  [ "$(readlink "$PREFIXO/$BIBLIOTECAS/libcotepe.so.$SOVERSAO")" = "libcotepe.so.$VERSAO" ] || falha "SOVERSION"
  ! grep -rlF -e "$FONTES" -e "$CONSTRUCAO" "$PREFIXO/$BIBLIOTECAS/cmake" "$PREFIXO/$BIBLIOTECAS/pkgconfig" ||
    falha "these name the tree that they were built in"
}

# A staged installation has the same files and says nothing of the stage.
destdir() {
  pasta_nova destdir
  DESTDIR=$PWD/raiz cmake --install "$CONSTRUCAO" --prefix /opt/cotepe >instala.txt
  arquivos_de raiz/opt/cotepe >staged
  arquivos_de "$PREFIXO" | cmp - staged
  ! grep -rlF -e "$PWD" raiz/opt/cotepe/"$BIBLIOTECAS"/cmake raiz/opt/cotepe/"$BIBLIOTECAS"/pkgconfig ||
    falha "these name the stage"
}

simbolos() {
  "$NM" -D --defined-only "$PREFIXO/$BIBLIOTECAS/libcotepe.so" | awk '{print $NF}' | LC_ALL=C sort |
    diff "$FONTES/Sources/InterfaceC/exported-symbols.txt" -
}

# Every header alone, with every warning; cotepe.h in C too.
cabecalhos() {
  pasta_nova cabecalhos
  avisos="-Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror"
  (cd "$PREFIXO/include/cotepe" && find . -name '*.h') | while read -r cabecalho; do
    echo "#include \"$cabecalho\"" >um.cpp
    # shellcheck disable=SC2086
    "$CXX" -std=c++17 $avisos -I"$PREFIXO/include/cotepe" -fsyntax-only um.cpp || exit 1
  done
  for norma in c99 c11 c17; do
    printf '#include <cotepe.h>\n#include <cotepe.h>\nint main(void) { return COTEPE_DONE; }\n' >um.c
    # shellcheck disable=SC2086
    "$CC" -std=$norma $avisos -Wstrict-prototypes -I"$PREFIXO/include/cotepe" -fsyntax-only um.c
  done
}

# An application with integer names of its own, of other types than those of the money type.
inteiros() {
  pasta_nova inteiros
  cat >um.cpp <<'FIM'
typedef long long INT64;
typedef unsigned long UINT32;
#define COTEPE_SEM_INTEIROS
#include "CotepeManager.h"
#include "Financial.h"
#include "Geracao.h"
#include "cotepe.h"
static_assert(sizeof(BigInt) == 12, "three words of 32 bits");
INT64 centavos(const char* texto) { return Financial::CentavosDoBanco(texto); }
FIM
  "$CXX" -std=c++17 -Wall -Wextra -Wpedantic -Werror -I"$PREFIXO/include/cotepe" -fsyntax-only um.cpp
}

# find_package takes the version that is there, or an older one of the same major, and no other.
versao() {
  pasta_nova versao
  aceita() {
    echo "set(PACKAGE_FIND_VERSION $1)
string(REGEX MATCH \"^[0-9]+\" PACKAGE_FIND_VERSION_MAJOR $1)
include($PREFIXO/$BIBLIOTECAS/cmake/cotepe/cotepeConfigVersion.cmake)
if(NOT PACKAGE_VERSION STREQUAL $VERSAO OR NOT PACKAGE_VERSION_COMPATIBLE)
  message(FATAL_ERROR no)
endif()" >pedido.cmake
    cmake -P pedido.cmake 2>recusa.txt
  }
  aceita "$VERSAO" || falha "$VERSAO"
  aceita "$SOVERSAO.0" || falha "$SOVERSAO.0"
  ! aceita "$((SOVERSAO + 1)).0" || falha "$((SOVERSAO + 1)).0 taken"
  ! aceita "$SOVERSAO.9999" || falha "$SOVERSAO.9999 taken"
}

carrega() { readelf -d "$1" | grep -q "NEEDED.*libcotepe.so.$SOVERSAO]"; }

# The CMake examples: by the C interface shared and static, by the class, by an object.
find_package() {
  pasta_nova find_package
  for exemplo in c hospedeiro objeto; do
    cp -r "$FONTES/examples/$exemplo" .
    cmake -S $exemplo -B construcao/$exemplo -G "$GERADOR" -DCMAKE_PREFIX_PATH="$PREFIXO" >$exemplo.txt
    cmake --build construcao/$exemplo >>$exemplo.txt || { cat $exemplo.txt; exit 1; }
  done
  faz_esperado
  carrega construcao/c/compartilhada || falha "not linked with the shared library"
  ! carrega construcao/c/estatica || falha "linked with the shared library"
  confere construcao/c/compartilhada
  confere construcao/c/estatica
  confere construcao/hospedeiro/hospedeiro
  confere construcao/objeto/objeto
}

pkg_config() {
  pasta_nova pkg_config
  mkdir exemplos
  cp -r "$FONTES"/examples/pkg-config "$FONTES"/examples/c "$FONTES"/examples/hospedeiro exemplos
  export PKG_CONFIG_PATH="$PREFIXO/$BIBLIOTECAS/pkgconfig" LD_LIBRARY_PATH="$PREFIXO/$BIBLIOTECAS"
  [ "$(pkg-config --modversion cotepe)" = "$VERSAO" ] || falha "version of cotepe.pc"
  exemplos/pkg-config/constroi.sh .
  faz_esperado
  confere ./compartilhada
  confere ./hospedeiro
}

# What docs/embedding.md shows is what the examples hold.
documento() { python3 "$aqui/trechos.py" "$FONTES/docs/embedding.md" "$FONTES/examples"; }

python() {
  case "$CXXFLAGS" in
    *-fsanitize=*) pula "a sanitized library must be loaded before the interpreter is" ;;
  esac
  pasta_nova python
  cp "$FONTES/examples/python/gera.py" .
  faz_esperado
  LD_LIBRARY_PATH="$PREFIXO/$BIBLIOTECAS" confere python3 gera.py
}

"$1"
