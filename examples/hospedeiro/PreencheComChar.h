// The application's padding routine.
#pragma once

void PreencheComChar(char* texto, char* destino, int tamanho, char caractere, int modo);
