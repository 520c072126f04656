/// @file
/// Padding into a fixed width.
#pragma once

/// Places `texto` into exactly `tamanho` bytes at `destino`, without a terminator, filled with `caractere`.
/// Mode 1: left-aligned, filled on the right; any other mode: right-aligned, filled on the left. A longer
/// text is cut after its first `tamanho` bytes.
void PreencheComChar(char* texto, char* destino, int tamanho, char caractere, int modo);
