# Steps that treat the installed library as hosts do, rightly and wrongly.

flags() { PKG_CONFIG_PATH="$PREFIXO/$BIBLIOTECAS/pkgconfig" pkg-config "$@"; }

# compila_corrida: corrida.c over the shared library.
compila_corrida() {
  # shellcheck disable=SC2046,SC2086
  "$CC" -Wall -Wextra -Werror ${CFLAGS:-} ${LDFLAGS:-} -o corrida "$aqui/corrida.c" $(flags --cflags --libs cotepe sqlite3)
}
corrida() { LD_LIBRARY_PATH="$PREFIXO/$BIBLIOTECAS" ./corrida "$@"; }

# espera RESULT ARGUMENTS...: what corrida prints.
espera() {
  esperado=$1; shift
  obtido=$(corrida "$@") || falha "corrida $*: status $?"
  [ "$obtido" = "$esperado" ] || falha "corrida $*: $obtido instead of $esperado"
}

# A report over the database, by any name, is refused and nothing is touched.
proprio_banco() {
  pasta_nova proprio_banco
  compila_corrida
  faz_esperado
  cp loja.db copia.db
  ln loja.db duro.db
  ln -s loja.db elo.db
  mkdir pasta
  ln -s .. pasta/acima
  for nome in loja.db duro.db elo.db ./loja.db "$PWD/loja.db" pasta/acima/loja.db loja.db-journal loja.db-wal \
    pasta/../loja.db-shm pasta/acima/loja.db-wal; do
    espera "3 0 EBUSY" loja.db "$nome" 01012024 31012024 TDM
    espera "3 0 EBUSY" elo.db "$nome" 01012024 31012024 TDM
  done
  cmp copia.db loja.db
  [ ! -e loja.db-journal ] && [ ! -e loja.db-wal ] && [ ! -e loja.db-shm ] || falha "a journal was made"

  sqlite3 loja.db 'PRAGMA journal_mode=WAL; CREATE TABLE outra(x)' '.shell cp loja.db-wal wal.txt' \
    '.shell ln loja.db-wal elo-do-wal' ".shell LD_LIBRARY_PATH=$PREFIXO/$BIBLIOTECAS ./corrida loja.db elo-do-wal 01012024 31012024 TDM >saida.txt" \
    '.shell cmp loja.db-wal wal.txt || echo touched >>saida.txt' >/dev/null
  [ "$(cat saida.txt)" = "3 0 EBUSY" ] || falha "a link to the write-ahead log: $(cat saida.txt)"
  espera "0 0" loja.db relatorio.txt 01012024 31012024 TDM
  espera "5 0" :memory: memoria.txt 01012024 31012024 TDM
}

# A day is of the calendar, days are in order, a command is one of the four; else there is no report.
argumentos() {
  pasta_nova argumentos
  compila_corrida
  faz_esperado
  for periodo in "2024-01-01 31012024" "01012024 2024-01-31" "99999999 99999999" "31012024 01012024" "00012024 31012024" \
    "30022024 31032024" "29022023 31032023" "01132024 31132024" "1012024 31012024" "010120244 31012024" "01010000 31012024" \
    "0101202x 31012024"; do
    # shellcheck disable=SC2086
    espera "2 0" loja.db relatorio.txt $periodo TDM
  done
  for comando in tdm "" MFD2 T "TDM " mf E01; do espera "2 0" loja.db relatorio.txt 01012024 31012024 "$comando"; done
  [ ! -e relatorio.txt ] || falha "a report was made"
  for comando in MF MFD TDM RZ; do espera "0 0" loja.db relatorio.txt 29022024 29022024 "$comando"; done
}

# A run that a callback cancels leaves an empty report; one that longjmp left, a generator that can be freed.
abandono() {
  pasta_nova abandono
  compila_corrida
  faz_esperado
  echo before >relatorio.txt
  espera "10 0" loja.db relatorio.txt 01012024 31012024 TDM cancel
  [ -e relatorio.txt ] && [ ! -s relatorio.txt ] || falha "the report of a cancelled run"
  sqlite3 loja.db 'DROP TABLE versao_sb'
  espera "10 0" loja.db relatorio.txt 01012024 31012024 TDM cancel
  [ ! -s relatorio.txt ] || falha "the report of a run cancelled by the log"
  case "${CFLAGS:-}" in
    *-fsanitize=*) echo "the jump is left out: what it leaks would be found"; return ;;
  esac
  echo before >relatorio.txt
  espera "-1 0" loja.db relatorio.txt 01012024 31012024 TDM jump
  [ ! -s relatorio.txt ] || falha "the report of an abandoned run"
}

# The application's own clock, larger than the plain one, by CMake and by pkg-config, in C++11.
relogio() {
  pasta_nova relogio
  cp "$FONTES"/examples/hospedeiro/*.h "$FONTES/examples/hospedeiro/Aplicativo.cpp" .
  cp "$aqui"/relogio/* .
  sed -i '/RtcAbsoluteTime::GetCurrentDateTime/,/^}/d; /RtcAbsoluteTime::ToStrDateTime/,/^}/d' Aplicativo.cpp
  cat >CMakeLists.txt <<'FIM'
cmake_minimum_required(VERSION 3.22)
project(relogio LANGUAGES CXX)
set(CMAKE_CXX_STANDARD 11)
find_package(cotepe CONFIG REQUIRED)
add_executable(relogio main.cpp Aplicativo.cpp)
target_include_directories(relogio PRIVATE ${CMAKE_CURRENT_SOURCE_DIR})
target_link_libraries(relogio PRIVATE cotepe::CotepeManager)
FIM
  constroi_com_cmake .
  faz_esperado
  confere construcao/relogio
  # shellcheck disable=SC2046,SC2086
  "$CXX" -std=c++11 -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror ${CXXFLAGS:-} ${LDFLAGS:-} -I. -o direto main.cpp \
    Aplicativo.cpp "$(flags --variable=unit cotepe-static)" $(flags --cflags --libs cotepe-static)
  confere ./direto
}

# constroi_com_cmake SOURCE: builds it in construcao.
constroi_com_cmake() {
  cmake -S "$1" -B construcao -G "$GERADOR" -DCMAKE_PREFIX_PATH="$PREFIXO" >construcao.txt
  cmake --build construcao >>construcao.txt || { cat construcao.txt; exit 1; }
}

# The class and the plain services, in either order, and with either linker's way to look for symbols.
ordem() {
  pasta_nova ordem
  cp "$FONTES/examples/minimo/main.cpp" .
  cat >CMakeLists.txt <<'FIM'
cmake_minimum_required(VERSION 3.22)
project(ordem LANGUAGES CXX)
find_package(cotepe CONFIG REQUIRED)
add_executable(antes main.cpp)
target_link_libraries(antes PRIVATE cotepe::CotepeManager cotepe::Host)
add_executable(depois main.cpp)
target_link_libraries(depois PRIVATE cotepe::Host cotepe::CotepeManager)
add_library(meio STATIC main.cpp)
target_link_libraries(meio PRIVATE cotepe::CotepeManager cotepe::Host)
file(WRITE ${CMAKE_CURRENT_BINARY_DIR}/vazio.cpp "")
add_executable(por_biblioteca ${CMAKE_CURRENT_BINARY_DIR}/vazio.cpp)
target_link_libraries(por_biblioteca PRIVATE meio)
FIM
  constroi_com_cmake .
  faz_esperado
  for programa in antes depois por_biblioteca; do confere_sem_hora construcao/$programa; done
}

# Without headers of its own, and without the plain ones, the class does not compile: nothing is guessed.
sem_cabecalhos() {
  pasta_nova sem_cabecalhos
  # shellcheck disable=SC2046
  ! "$CXX" -std=c++11 -fsyntax-only "$(flags --variable=unit cotepe-static)" $(flags --cflags cotepe-static) 2>erros.txt ||
    falha "compiled without the application's headers"
  grep -q 'GravaLog.h' erros.txt
}
