# What every example must write: the report of the installed program, with the time of the examples' clock.

# com_hora_dos_exemplos REPORT: with the time of the examples' clock in E11.
com_hora_dos_exemplos() { sed '/^E11/s/^\(.\{122\}\)[0-9]\{14\}/\120240229083000/' "$1"; }

# faz_esperado: a shop's days in loja.db, and the report of the program in esperado.txt.
faz_esperado() {
  "$PREFIXO/bin/cotepe" sample loja.db --days 3 --coupons-per-day 5 --start 2024-01-01 --quiet
  "$PREFIXO/bin/cotepe" generate --db loja.db --from 01012024 --to 31012024 --layout 2 --quiet --output programa.txt
  com_hora_dos_exemplos programa.txt >esperado.txt
  grep -q '^E14' esperado.txt
}

# confere PROGRAM...: runs an example and compares its report byte for byte.
confere() {
  rm -f relatorio.txt
  "$@" loja.db relatorio.txt 01012024 31012024
  cmp esperado.txt relatorio.txt
  echo "$*: as the program's"
}

# confere_sem_hora PROGRAM...: the same of an example whose clock is the system's.
confere_sem_hora() {
  rm -f relatorio.txt
  "$@" loja.db relatorio.txt 01012024 31012024
  com_hora_dos_exemplos relatorio.txt | cmp esperado.txt -
  echo "$*: as the program's, but for the time"
}
