// What the application knows of its printer: terminated texts, empty when unknown.
#pragma once

extern char g_Serial[30];
extern char g_Modelo[30];
extern char g_Tipo[15];
extern char g_VersaoSB[15];
