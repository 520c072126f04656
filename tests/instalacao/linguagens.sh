# The bindings as they are installed: the acceptance test of each, and its example.

# dados: what the acceptance tests want, as bindings/*/test* say, in the folder dados.
dados() {
  faz_esperado
  mkdir dados
  cp loja.db esperado.txt dados
  cp loja.db dados/quebrado.db
  sqlite3 dados/quebrado.db 'DROP TABLE versao_sb'
  cp loja.db dados/extremo.db
  sqlite3 dados/extremo.db "PRAGMA ignore_check_constraints=ON; UPDATE item_cupom_fiscal SET quantidade='1e999', valor_unitario='-1e999';
    UPDATE meio_pagamento_reducao SET valor_acumulado='1e308'"
  "$PREFIXO/bin/cotepe" generate --db dados/extremo.db --from 01012024 --to 31012024 --layout 2 --quiet --output extremo.txt
  com_hora_dos_exemplos extremo.txt >dados/extremo.txt
  rm programa.txt extremo.txt
  mkdir pasta
  ligacoes="$PREFIXO/share/cotepe/bindings"
  export LD_LIBRARY_PATH="$PREFIXO/$BIBLIOTECAS"
  case "$CXXFLAGS" in
    *-fsanitize=*) pula "a sanitized library must be loaded before the interpreter is" ;;
  esac
}

# The commands of docs/embedding.md, each run as it stands there but for the folder of the installation.
comandos_do_documento() {
  for ferramenta in fpc mcs mono; do precisa $ferramenta; done
  pasta_nova comandos_do_documento
  dados
  cp -r "$FONTES/examples" "$ligacoes" .
  {
    echo 'set -eu'
    echo "fpc() { command fpc -v0ew '-Fl$PREFIXO/$BIBLIOTECAS' \"\$@\"; }"
    sed -n '/^```sh$/,/^```$/{/^```/d;p}' "$FONTES/docs/embedding.md" | sed "s|/usr/|$PREFIXO/|g" |
      sed '/relatorio\.txt 01012024/a com_hora_dos_exemplos relatorio.txt | cmp esperado.txt -\nrm relatorio.txt'
  } >comandos.sh
  [ "$(grep -c 'cmp esperado.txt' comandos.sh)" -ge 7 ] || falha "the commands were not found"
  export PKG_CONFIG_PATH="$PREFIXO/$BIBLIOTECAS/pkgconfig" PYTHONDONTWRITEBYTECODE=1
  . ./comandos.sh
}

precisa() { command -v "$1" >/dev/null || pula "no $1"; }

python() {
  precisa pytest-3
  pasta_nova python
  dados
  grep -qx "version = \"$VERSAO\"" "$ligacoes/python/pyproject.toml" || falha "pyproject.toml has another version"
  PYTHONDONTWRITEBYTECODE=1 COTEPE_TEST_DATA=$PWD/dados pytest-3 -q -p no:cacheprovider "$ligacoes/python" || falha "pytest"
  export PYTHONPATH="$ligacoes/python" PYTHONDONTWRITEBYTECODE=1
  confere python3 "$ligacoes/python/example.py"
  COTEPE_LIBRARY="$PREFIXO/$BIBLIOTECAS/libcotepe.so" confere python3 "$ligacoes/python/example.py"
}

pascal() {
  precisa fpc
  pasta_nova pascal
  dados
  cp "$ligacoes"/pascal/*.pas .
  cp loja.db pasta
  for programa in test example; do
    fpc -v0ew -O2 -Cr -Co "-Fl$PREFIXO/$BIBLIOTECAS" $programa.pas >$programa.txt 2>&1 || { cat $programa.txt; exit 1; }
  done
  ./test dados pasta
  confere ./example
}

csharp() {
  precisa mcs
  precisa mono
  pasta_nova csharp
  dados
  cp "$ligacoes"/csharp/*.cs .
  for programa in Test Example; do
    mcs -langversion:5 -warnaserror+ -out:$programa.exe $programa.cs Cotepe.cs >$programa.txt 2>&1 || { cat $programa.txt; exit 1; }
  done
  mono --debug Test.exe dados pasta
  confere mono Example.exe
  # Where there is the library alone, without the link that developers have.
  mcs -langversion:5 -define:COTEPE_UNIX -out:Unix.exe Example.cs Cotepe.cs
  mkdir so
  cp "$PREFIXO/$BIBLIOTECAS/libcotepe.so.$SOVERSAO" so
  LD_LIBRARY_PATH=so confere mono Unix.exe
}
