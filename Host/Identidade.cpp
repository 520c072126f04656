#include "Identidade.h"

char g_Serial[30] = "";
char g_Modelo[30] = "";
char g_Tipo[15] = "";
char g_VersaoSB[15] = "";
