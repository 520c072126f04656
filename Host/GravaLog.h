/// @file
/// The application's log, as the generator calls it.
#pragma once

/// Appends one message line to the application's log. This implementation writes to `logDoAplicativo`
/// (ArquivoDeLog.h).
void Quorvel_GravaLog(char* mensagem);
