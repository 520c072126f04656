// The application's log.
#pragma once

void Quorvel_GravaLog(char* mensagem);
