// Counts what the whole program allocates: the global operator new is replaced beside this header.
#pragma once

// How many times operator new has been called so far.
unsigned long alocacoes();
