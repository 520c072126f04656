#!/bin/sh
# The steps of the tests of the catalogue, one a call: passos.sh STEP, with FONTES and PROGRAMA in the environment, in
# a folder of their own.
set -eu
export LC_ALL=C.UTF-8 PYTHONDONTWRITEBYTECODE=1
pasta=$PWD/$1
rm -rf "$pasta" && mkdir "$pasta"
cd "$FONTES"

falha() { echo "$*" >&2; exit 1; }
frases() { python3 tests/idioma/frases.py "$pasta/cotepe.pot" tests/idioma/permitidas.txt "$@"; }

catalogue() {
  scripts/messages "$pasta"
  python3 tests/idioma/catalogo.py "$pasta/cotepe.pot"
  msgfmt --check --output-file=/dev/null po/pt_BR.po
}

sentences() {
  scripts/messages "$pasta"
  frases
}

# Both checks must see what they are there for.
planted() {
  scripts/messages "$pasta"
  cat >"$pasta/plantado.cpp" <<'FIM'
void f() { throw Falha(kUsoErrado, "this sentence is not marked"); }
const char* g() { return marca("marked, but no message of the catalogue"); }
const char* h = traduz("Compare two " "reports, record by record");  // well marked
std::string i = "error: " + traduz("error") + " in the file";
FIM
  ! frases "$pasta/plantado.cpp" >"$pasta/achadas" || falha "nothing was found"
  sed 's/^.*plantado.cpp:\([0-9]*\): not marked for the catalogue: /\1 /' "$pasta/achadas" >"$pasta/curtas"
  diff - "$pasta/curtas" <<'FIM'
1 'this sentence is not marked'
2 'marked, but no message of the catalogue'
4 ' in the file'
FIM
  printf '\nmsgid "a new message"\nmsgstr ""\n' >>"$pasta/cotepe.pot"
  ! python3 tests/idioma/catalogo.py "$pasta/cotepe.pot" >"$pasta/achadas" || falha "no missing translation was found"
  grep -qx "'a new message': not translated in po/pt_BR.po" "$pasta/achadas" || falha "another one was found"
}

unbracketed() {
  ! python3 tests/idioma/cercadas.py "$pasta" "$PROGRAMA" "Compare two reports, record by record" >"$pasta/achadas" ||
    falha "the message without brackets was not found"
  sed '$d' "$pasta/achadas" >"$pasta/curtas"
  diff - "$pasta/curtas" <<'FIM'
--help: not of the catalogue: diff                        Compare two reports, record by record
diff --help: not of the catalogue: Compare two reports, record by record
FIM
}

bracketed() { python3 tests/idioma/cercadas.py "$pasta" "$PROGRAMA"; }

"$1"
