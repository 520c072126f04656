#include "DiscoRuim.h"

#include <cstring>

namespace {

DiscoRuim g_atual;
sqlite3_vfs* g_real = nullptr;
sqlite3_vfs g_ruim;

// A file of ours, and behind it in memory the real one.
struct Arquivo {
  sqlite3_file base;
  sqlite3_file* real() { return reinterpret_cast<sqlite3_file*>(this + 1); }
};

sqlite3_file* real(sqlite3_file* arquivo) { return reinterpret_cast<Arquivo*>(arquivo)->real(); }

bool falha(DiscoRuim::Metodo metodo) {
  if (g_atual.metodo != metodo || g_atual.posicao >= 0) return false;
  ++g_atual.chamadas;
  return g_atual.dali ? g_atual.chamadas >= g_atual.vez : g_atual.chamadas == g_atual.vez;
}

bool falhaAqui(sqlite3_int64 posicao) {
  return (g_atual.posicao >= 0 && g_atual.posicao == posicao) || falha(DiscoRuim::Leitura);
}

// A method that is passed on as it is, and one that can fail.
#define PASSA(metodo, parametros, argumentos) \
  [](sqlite3_file* f parametros) { return real(f)->pMethods->metodo(real(f) argumentos); }
#define E ,

int le(sqlite3_file* f, void* destino, int bytes, sqlite3_int64 posicao) {
  if (!falhaAqui(posicao)) return real(f)->pMethods->xRead(real(f), destino, bytes, posicao);
  if (g_atual.codigo != SQLITE_IOERR_SHORT_READ) return g_atual.codigo;
  const int lido = real(f)->pMethods->xRead(real(f), destino, bytes, posicao);
  std::memset(static_cast<char*>(destino) + bytes / 2, 0, static_cast<std::size_t>(bytes - bytes / 2));
  return lido == SQLITE_OK ? SQLITE_IOERR_SHORT_READ : lido;
}

int tranca(sqlite3_file* f, int modo) {
  return falha(DiscoRuim::Tranca) ? g_atual.codigo : real(f)->pMethods->xLock(real(f), modo);
}

int trancaDaMemoria(sqlite3_file* f, int de, int quantas, int opcoes) {
  const bool solta = (opcoes & SQLITE_SHM_UNLOCK) != 0;
  if (!solta && falha(DiscoRuim::TrancaDaMemoria)) return g_atual.codigo;
  return real(f)->pMethods->xShmLock(real(f), de, quantas, opcoes);
}

int tamanho(sqlite3_file* f, sqlite3_int64* bytes) {
  return falha(DiscoRuim::Tamanho) ? g_atual.codigo : real(f)->pMethods->xFileSize(real(f), bytes);
}

const sqlite3_io_methods kMetodos = {
    2,  // without the methods for files mapped into memory
    PASSA(xClose, , ),
    le,
    PASSA(xWrite, E const void* de E int n E sqlite3_int64 onde, E de E n E onde),
    PASSA(xTruncate, E sqlite3_int64 n, E n),
    PASSA(xSync, E int opcoes, E opcoes),
    tamanho,
    tranca,
    PASSA(xUnlock, E int modo, E modo),
    PASSA(xCheckReservedLock, E int* sim, E sim),
    PASSA(xFileControl, E int pedido E void* dado, E pedido E dado),
    PASSA(xSectorSize, , ),
    PASSA(xDeviceCharacteristics, , ),
    PASSA(xShmMap, E int parte E int n E int cresce E void volatile** onde, E parte E n E cresce E onde),
    trancaDaMemoria,
    PASSA(xShmBarrier, , ),
    PASSA(xShmUnmap, E int apaga, E apaga),
    nullptr,
    nullptr,
};

int abre(sqlite3_vfs* /*ruim*/, const char* nome, sqlite3_file* f, int modo, int* obtido) {
  f->pMethods = nullptr;
  if (falha(DiscoRuim::Abertura)) return g_atual.codigo;
  const int resultado = g_real->xOpen(g_real, nome, real(f), modo, obtido);
  if (resultado == SQLITE_OK) f->pMethods = &kMetodos;
  return resultado;
}

// SQLite waits between two tries for a lock; no test has to.
int dorme(sqlite3_vfs* /*ruim*/, int microssegundos) { return microssegundos; }

bool registra() {
  g_real = sqlite3_vfs_find(nullptr);
  g_ruim = *g_real;
  g_ruim.szOsFile += static_cast<int>(sizeof(Arquivo));
  g_ruim.zName = DiscoRuim::kNome;
  g_ruim.xOpen = abre;
  g_ruim.xSleep = dorme;
  return sqlite3_vfs_register(&g_ruim, 0) == SQLITE_OK;
}

}  // namespace

DiscoRuim& DiscoRuim::atual() {
  static const bool registrado = registra();
  static_cast<void>(registrado);
  return g_atual;
}

void DiscoRuim::poe(Metodo metodo, long vez, bool dali, int codigo) {
  atual() = {metodo, vez, dali, codigo, -1, 0};
}

void DiscoRuim::poeNaPosicao(sqlite3_int64 posicao, int codigo) {
  atual() = {Leitura, 0, false, codigo, posicao, 0};
}

void DiscoRuim::tira() { atual() = {}; }
