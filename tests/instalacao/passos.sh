#!/bin/sh
# The steps of the tests of the installed package, one a call: passos.sh STEP, with the settings of CMakeLists.txt
# in the environment. Examples are copied out of the tree and see of it the prefix alone.
set -eu
export LC_ALL=C
aqui=$(dirname "$0")
. "$aqui/exemplos.sh"
. "$aqui/hospedeiros.sh"
. "$aqui/linguagens.sh"

falha() { echo "$*" >&2; exit 1; }
pula() { echo "skipped: $*"; exit 77; }

# pasta_nova NAME: an empty folder of the step's own.
pasta_nova() { rm -rf "$1" && mkdir "$1" && cd "$1"; }

arquivos_de() { (cd "$1" && find . ! -type d | LC_ALL=C sort); }

# The program is installed as it was built, so it stands for what the examples must write.
instala() {
  rm -rf "$PREFIXO"
  cmake --install "$CONSTRUCAO" --prefix "$PREFIXO" >instala.txt
  for arquivo in bin/cotepe include/cotepe/cotepe.h include/cotepe/Hospedeiro.h "$BIBLIOTECAS/libcotepe.a" \
    "$BIBLIOTECAS/libcotepe_host.a" "$BIBLIOTECAS/libcotepe.so.$VERSAO" \
    "$BIBLIOTECAS/cmake/cotepe/cotepeConfig.cmake" "$BIBLIOTECAS/pkgconfig/cotepe.pc" \
    share/locale/pt_BR/LC_MESSAGES/cotepe.mo; do
    [ -f "$PREFIXO/$arquivo" ] || falha "not installed: $arquivo"
  done
  [ "$(readlink "$PREFIXO/$BIBLIOTECAS/libcotepe.so")" = "libcotepe.so.$SOVERSAO" ] || falha "libcotepe.so"
  [ "$(readlink "$PREFIXO/$BIBLIOTECAS/libcotepe.so.$SOVERSAO")" = "libcotepe.so.$VERSAO" ] || falha "SOVERSION"
  LC_ALL=C.UTF-8 LANGUAGE=pt_BR "$PREFIXO/bin/cotepe" schema --help | grep -qx 'Uso: cotepe schema \[OPÇÕES\]' ||
    falha "the program speaks no Portuguese"
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

# exporta LIBRARY LIST: the library has the symbols of the list, and no others.
exporta() { "$NM" -D --defined-only "$PREFIXO/$BIBLIOTECAS/$1" | awk '$2 == "T" {print $NF}' | LC_ALL=C sort | diff "$FONTES/$2" -; }

simbolos() {
  exporta libcotepe.so Sources/InterfaceC/exported-symbols.txt
  ! "$NM" -D --undefined-only "$PREFIXO/$BIBLIOTECAS/libcotepe.so" | grep -E 'gettext|textdomain|setlocale' ||
    falha "the library speaks the user's language"
  ! readelf -d "$PREFIXO/$BIBLIOTECAS/libcotepe.so" | grep 'NEEDED.*libcrypto' || falha "the library needs OpenSSL"
}

# The library that signs: its symbols, and the snippet of docs/delivery.md compiled from the package alone; what it signs,
# the program verifies.
assinatura() {
  [ "$ASSINA" = ON ] || pula "built without COTEPE_SIGN"
  command -v openssl >/dev/null || pula "no openssl"
  exporta libcotepe-sign.so Sources/Assinatura/exported-symbols.txt
  pasta_nova assinatura
  export PKG_CONFIG_PATH="$PREFIXO/$BIBLIOTECAS/pkgconfig" LD_LIBRARY_PATH="$PREFIXO/$BIBLIOTECAS"
  [ "$(pkg-config --modversion cotepe-sign)" = "$VERSAO" ] || falha "version of cotepe-sign.pc"
  {
    printf '#include <cotepe-sign.h>\n#include <stdio.h>\n\nint main(void) {\nconst char *passphrase = NULL;\n'
    sed -n '/^```c$/,/^```$/{/^```/!p}' "$FONTES/docs/delivery.md"
    printf 'return result;\n}\n'
  } >main.c
  grep -q cotepe_sign_file main.c || falha "docs/delivery.md has no snippet"
  # shellcheck disable=SC2046,SC2086
  "$CC" $CFLAGS -Wall -Wextra -Werror -o assina main.c $(pkg-config --cflags --libs cotepe-sign) $LDFLAGS
  readelf -d assina | grep -q "NEEDED.*libcotepe-sign.so.$SOVERSAO]" || falha "not linked with libcotepe-sign"
  openssl genpkey -algorithm RSA -pkeyopt rsa_keygen_bits:1024 -out private.pem 2>openssl.txt
  "$PREFIXO/bin/cotepe" public-key private.pem --name ACME --output public.xml
  faz_esperado
  cp programa.txt report.txt
  ./assina
  "$PREFIXO/bin/cotepe" verify-signature signed.txt --public-key public.xml | grep -qx 'signed.txt: valid' ||
    falha "what the library signs is not valid"
  ! ./assina 2>erro.txt || falha "an output that is there was replaced"
  grep -q 'the output exists' erro.txt || falha "no words for an output that is there"
}

# normas_de HEADER: the standards that compile it, as docs/embedding.md has them.
normas_de() {
  case "$1" in
    cotepe.h | cotepe-sign.h) echo c++98 c++03 c++11 c++14 c++17 c++20 c++2b ;;
    CotepeManager.h | Geracao.h | Hospedeiro.h | host/*) echo c++11 c++14 c++17 c++20 c++2b ;;
    *) echo c++17 c++20 c++2b ;;
  esac
}

# Every header alone, with every warning, in every standard that it promises, by both compilers where they are; those for C in C too.
cabecalhos() {
  pasta_nova cabecalhos
  avisos="-Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror -fsyntax-only -I$PREFIXO/include/cotepe"
  (cd "$PREFIXO/include/cotepe" && find . -name '*.h' | sed 's|^\./||') >cabecalhos.txt
  [ "$(wc -l <cabecalhos.txt)" -ge 10 ] || falha "the headers were not found"
  while read -r cabecalho; do
    printf '#include "%s"\n#include "%s"\n' "$cabecalho" "$cabecalho" >um.cpp
    normas=$(normas_de "$cabecalho")
    for norma in $normas; do
      # The second compiler looks at the oldest of them and the newest, which takes half the time.
      case "$norma" in "${normas%% *}" | "${normas##* }") compiladores="g++ clang++" ;; *) compiladores=g++ ;; esac
      for compilador in $compiladores; do
        command -v "$compilador" >/dev/null || continue
        # shellcheck disable=SC2086
        "$compilador" -std="$norma" $avisos um.cpp || falha "$cabecalho: $compilador -std=$norma"
      done
    done
  done <cabecalhos.txt
  em_c cotepe.h COTEPE_DONE
  [ "$ASSINA" != ON ] || em_c cotepe-sign.h COTEPE_SIGN_DONE
}

# em_c HEADER CONSTANT: a header for C, by both compilers, and by one that knows none of the extensions.
em_c() {
  printf '#include <%s>\n#include <%s>\nint main(void) { return %s; }\n' "$1" "$1" "$2" >um.c
  for norma in c99 c11 c17 c2x; do
    for compilador in gcc clang; do
      command -v "$compilador" >/dev/null || continue
      # shellcheck disable=SC2086
      "$compilador" -std=$norma $avisos -Wstrict-prototypes um.c || falha "$1: $compilador -std=$norma"
    done
  done
  # shellcheck disable=SC2086
  gcc -std=c99 $avisos -U__GNUC__ -D'__attribute__(x)=error' -D'__declspec(x)=error' um.c || falha "$1: no extensions"
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

# find_package takes the version that is there, or an older one that it is compatible with, and no other: while the major
# is 0 that is of the same minor.
versao() {
  pasta_nova versao
  aceita() {
    echo "set(PACKAGE_FIND_VERSION $1)
string(REGEX MATCH \"^[0-9]+\" PACKAGE_FIND_VERSION_MAJOR $1)
string(REGEX REPLACE \"^[0-9]+.([0-9]+).*\" \"\\\\1\" PACKAGE_FIND_VERSION_MINOR $1)
include($PREFIXO/$BIBLIOTECAS/cmake/cotepe/cotepeConfigVersion.cmake)
if(NOT PACKAGE_VERSION STREQUAL $VERSAO OR NOT PACKAGE_VERSION_COMPATIBLE)
  message(FATAL_ERROR no)
endif()" >pedido.cmake
    cmake -P pedido.cmake 2>recusa.txt
  }
  aceita "$VERSAO" || falha "$VERSAO"
  menor=$(echo "$VERSAO" | cut -d . -f 2)
  aceita "$SOVERSAO.$menor" || falha "$SOVERSAO.$menor"
  if [ "$SOVERSAO" -eq 0 ]; then ! aceita "0.$((menor - 1))" || falha "0.$((menor - 1)) taken"; fi
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
  cp -r "$FONTES"/examples/* exemplos
  export PKG_CONFIG_PATH="$PREFIXO/$BIBLIOTECAS/pkgconfig" LD_LIBRARY_PATH="$PREFIXO/$BIBLIOTECAS"
  [ "$(pkg-config --modversion cotepe)" = "$VERSAO" ] || falha "version of cotepe.pc"
  exemplos/pkg-config/constroi.sh .
  faz_esperado
  for programa in compartilhada estatica objeto hospedeiro; do confere ./$programa; done
  confere_sem_hora ./minimo
}

# What docs/embedding.md shows is what the examples hold.
documento() { python3 "$aqui/trechos.py" "$FONTES/docs/embedding.md" "$FONTES/examples" "$FONTES/bindings"; }

comandos() { "$PREFIXO/bin/cotepe" --help | sed -n '/^Subcommands:/,/^$/s/^  \([a-z]*\) .*/\1/p'; }
opcoes_de() { "$PREFIXO/bin/cotepe" "$@" --help | grep -o '^ *\(-h,\)\?--[a-z0-9-]*' | grep -o -e '--.*'; }

# A page for the program and one for each command, with every option of its help, and nothing odd in the roff.
manuais() {
  paginas="$PREFIXO/share/man/man1"
  [ "$(comandos | wc -l)" -ge 9 ] || falha "the commands of the help were not found"
  for comando in $(comandos); do
    opcoes_de "$comando" | sed 's/-/\\-/g' | while read -r opcao; do
      grep -qF -e "$opcao" "$paginas/cotepe-$comando.1" || falha "$opcao is not in cotepe-$comando.1"
    done || exit 1
    grep -q "cotepe.*$comando" "$paginas/cotepe.1" || falha "$comando is not in cotepe.1"
  done
  command -v groff >/dev/null || { echo "no groff: the pages were not formatted"; return; }
  for pagina in "$paginas"/*.1; do
    groff -man -ww -z "$pagina" 2>&1 | { ! grep .; } || falha "$pagina"
  done
}

completa_no_bash() {
  bash -c '. "$0" && COMP_WORDS=("$@") && COMP_CWORD=$(($# - 1)) && _cotepe; printf "%s\n" "${COMPREPLY[@]}"' \
    "$PREFIXO/share/bash-completion/completions/cotepe" "$@"
}

bash_completa() {
  command -v bash >/dev/null || pula "no bash"
  [ "$(completa_no_bash cotepe generate --command M | tr '\n' ' ')" = "MF MFD " ] || falha "a choice"
  [ "$(completa_no_bash cotepe val)" = "validate" ] || falha "a command"
  [ "$(completa_no_bash cotepe layout E2 | tr '\n' ' ')" = "E20 E21 E22 " ] || falha "a register"
  pasta_nova bash
  : >"um arquivo.db"
  [ "$(completa_no_bash cotepe check --db um)" = "um arquivo.db" ] || falha "a file"
  for comando in $(comandos); do
    completa_no_bash cotepe "$comando" -- >completadas
    opcoes_de "$comando" | while read -r opcao; do
      grep -qxF -e "$opcao" completadas || falha "$opcao of $comando"
    done || exit 1
  done
}

zsh_completa() {
  command -v zsh >/dev/null || pula "no zsh"
  funcoes="$PREFIXO/share/zsh/site-functions"
  zsh -fn "$funcoes/_cotepe"
  [ "$(zsh -fc "fpath=($funcoes \$fpath); autoload -Uz compinit; compinit -D -u; print \$_comps[cotepe]")" = _cotepe ] ||
    falha "not taken by compinit"
}

fish_completa() {
  command -v fish >/dev/null || pula "no fish"
  pasta_nova fish
  completa() {
    HOME=$PWD fish --no-config -c "source $PREFIXO/share/fish/vendor_completions.d/cotepe.fish; complete -C '$1'" | cut -f 1
  }
  [ "$(completa 'cotepe generate --command M' | tr '\n' ' ')" = "MF MFD " ] || falha "a choice"
  [ "$(completa 'cotepe val')" = "validate" ] || falha "a command"
  [ "$(completa 'cotepe show --format ' | tr '\n' ' ')" = "csv json text " ] || falha "the choices of a format"
  for comando in $(comandos); do
    completa "cotepe $comando --" >completadas
    opcoes_de "$comando" | while read -r opcao; do
      grep -qxF -e "$opcao" completadas || falha "$opcao of $comando"
    done || exit 1
  done
}

"$1"
