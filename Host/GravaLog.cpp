#include "GravaLog.h"

#include "ArquivoDeLog.h"

void Quorvel_GravaLog(char* mensagem) { logDoAplicativo().escreve(mensagem); }
