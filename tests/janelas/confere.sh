#!/bin/sh
# confere.sh BUILD SQLITE HERE WINE: tries under wine what a build for Windows made: the tests in BUILD/tests/janelas,
# and the program, held to the one that runs HERE: what it prints, how it ends and what it writes. SQLITE: the folder
# of sqlite3.dll. WINE: the folder for wine's settings. Where the tests were not built, only exports and imports are
# looked at.
set -eu
construcao=$(realpath "$1") sqlite=$(realpath "$2") aqui=$(realpath "$3") testes=$(dirname "$(realpath "$0")")
mkdir -p "$4"
WINEPREFIX=$(realpath "$4") WINEDEBUG=-all LC_ALL=C.UTF-8 TZ=UTC
export WINEPREFIX WINEDEBUG LC_ALL TZ
unset LANGUAGE
la=$construcao/Tools/cotepe/cotepe.exe
pasta=$(mktemp -d)
trap 'rm -rf "$pasta"; WINEPREFIX=$WINEPREFIX wineserver -k 2>/dev/null || true' EXIT
cd "$pasta"
feitos=0
carimbo='/^E11/s/^\(.\{122\}\)[0-9]\{14\}/\120240229083000/'

falha() { echo "confere.sh: $*" >&2; exit 1; }

# The DLL exports the functions of the header and nothing else, and no program needs a library that is not delivered.
exportados() {
  "$1-w64-mingw32-objdump" -p "$construcao/Sources/InterfaceC/cotepe.dll" |
    sed -n '/Ordinal\/Name/,/^$/s/^[^A-Z]*[0-9]\] \([A-Za-z_0-9]*\).*$/\1/p' | sort >dll.txt
  sed -n 's/^\(cotepe_[a-z0-9_]*\)@@.*/\1/p' "$testes/../../Sources/InterfaceC/exported-symbols.txt" | sort >nomes.txt
  cmp nomes.txt dll.txt || falha "the DLL exports something else than the functions of cotepe.h"
  alheios=$("$1-w64-mingw32-objdump" -p "$la" "$construcao/Sources/InterfaceC/cotepe.dll" | sed -n 's/.*DLL Name: //p' |
    grep -viE '^(kernel32|msvcrt|shell32|advapi32|user32|sqlite3)\.dll$' || true)
  [ -z "$alheios" ] || falha "libraries are needed that are not delivered: $alheios"
  "$1-w64-mingw32-objdump" -p "$la" | grep -qi 'DLL Name: sqlite3' && falha "the program needs sqlite3.dll"
  feitos=$((feitos + 3))
}

# igual ARGUMENTS...: both programs, in a folder each, with $entrada on stdin: the same status, stdout and stderr, but
# for the seconds, and for the clock's stamp in a report.
entrada=/dev/null
igual() {
  for quem in aqui la; do
    situacao=0
    if [ $quem = aqui ]; then (cd aqui.d && "$aqui" "$@") <"$entrada" >aqui.out 2>aqui.err || situacao=$?
    else (cd la.d && wine "$la" "$@") <"$entrada" >la.out 2>la.err || situacao=$?; fi
    echo "$situacao" >$quem.fim
    sed -i 's/, [0-9.]* s$//' $quem.err
    sed -i "$carimbo" $quem.out
  done
  for parte in fim out err; do
    cmp -s aqui.$parte la.$parte || { diff aqui.$parte la.$parte | head -n 20; falha "another $parte: cotepe $*"; }
  done
  feitos=$((feitos + 1))
}

# The same bytes in both folders, but for the stamp of E11, which is the clock's.
mesmoArquivo() {
  for quem in aqui la; do sed "$carimbo" "$quem.d/$1" >$quem.bytes; done
  cmp aqui.bytes la.bytes || falha "other bytes: $1"
  feitos=$((feitos + 1))
}

vazia() { [ "$(find . -maxdepth 2 -name '*.tmp*' | wc -l)" -eq "$1" ] || { ls -A la.d; falha "$2"; }; feitos=$((feitos + 1)); }

comandos() {
  igual --version
  igual sample --help
  igual sample "lójà.db" --days 3 --coupons-per-day 5 --start 2024-01-01
  mesmoArquivo "lójà.db"
  for ajuste in "" "--layout 2" "--cat52" "--command MF" "--command RZ"; do
    # shellcheck disable=SC2086
    igual generate --db "lójà.db" --from 01012024 --to 31012024 --output "relatório.txt" --force $ajuste
    mesmoArquivo "relatório.txt"
  done
  igual generate --db "lójà.db" --from 01012024 --to 31012024 --output r.txt --quiet
  igual generate --db "lójà.db" --from 01012024 --to 31012024 --output r.txt
  igual generate --db "lójà.db" --from 01012024 --to 31012024 --output "lójà.db" --force
  igual generate --db nada.db --from 01012024 --to 31012024
  igual generate --db "lójà.db" --from 01012024 --to 31012024 --output nada/r.txt
  igual generate --db r.txt --from 01012024 --to 31012024
  igual generate --from 32012024
  cp aqui.d/r.txt la.d/r.txt
  igual validate r.txt
  entrada=aqui.d/r.txt
  igual validate -
  entrada=/dev/null
  igual generate --db "lójà.db" --from 01012024 --to 31012024 --output -
  igual validate .
  igual validate nada.txt
  igual show r.txt
  igual explain r.txt:1
  igual diff r.txt "relatório.txt"
  igual check "lójà.db"
  igual verify r.txt --db "lójà.db"
  igual summary r.txt
  igual report r.txt --output "página.html"
  igual export r.txt --to sqlite --output tabelas.db
  mesmoArquivo tabelas.db
  igual export r.txt --to csv --output tabelas
  mesmoArquivo tabelas/E14.csv
  igual schema
  igual layout --format markdown
  export LANGUAGE=pt_BR
  igual validate nada.txt
  igual check "lójà.db"
  igual verify r.txt --db "lójà.db"
  igual sample --help
  unset LANGUAGE
}

# Ctrl-C typed at a terminal ends a run, which leaves nothing.
interrompido() {
  digita() {
    passos=0
    until [ -n "$(find la.d -name '.outro.db.cotepe-*')" ] || [ $passos -eq 300 ]; do sleep 0.1; passos=$((passos + 1)); done
    sleep 0.5; printf '\003'; sleep 5
  }
  situacao=0
  digita | TERM=xterm timeout -k 5 90 script -qec "wine '$la' sample la.d/outro.db --days 30000 --quiet 2>interrompe.err" \
    /dev/null >tela.txt || situacao=$?
  [ $situacao -eq 130 ] || { cat tela.txt interrompe.err; falha "status $situacao after Ctrl-C"; }
  grep -q 'SIGINT; the temporary file was removed' interrompe.err || falha "$(cat interrompe.err)"
  [ ! -e la.d/outro.db ] || falha "an interrupted run left its file"
  vazia 0 "Ctrl-C left something"
}

# A killed run leaves no file of the name asked for; the next one removes what it left.
morto() {
  wine "$construcao/tests/janelas/mata.exe" la.d "$la" sample la.d/outro.db --days 30000 --quiet ||
    falha "the run could not be killed"
  [ ! -e la.d/outro.db ] || falha "a killed run left its file"
  vazia 1 "a killed run leaves its temporary file"
  wine "$la" sample la.d/outro.db --days 1 --quiet || falha "sample after a killed one"
  vazia 0 "what the killed run left is still there"
}

mkdir aqui.d la.d
case "$construcao" in *x86_64*) exportados x86_64 ;; *) exportados i686 ;; esac
if [ ! -e "$construcao/tests/janelas/testes_janelas.exe" ]; then
  case "$construcao" in *x86_64*) falha "the tests were not built" ;; esac
  echo "exports and imports are right; nothing was run, for there is no wine for this processor here"
  exit 0
fi
WINEPATH="Z:$construcao/Sources/InterfaceC;Z:$sqlite" wine "$construcao/tests/janelas/testes_janelas.exe" --gtest_brief=1 \
  >testes.txt 2>&1 || { cat testes.txt; exit 1; }
tr -d '\r' <testes.txt | grep '^\[  PASSED  \]' || falha "no test ran"
comandos
interrompido
morto
echo "the program: $feitos checks against the one that runs here"
