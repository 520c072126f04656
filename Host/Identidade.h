/// @file
/// What the application knows about the printer: terminated texts, empty when unknown. The database takes
/// precedence over them.
#pragma once

extern char g_Serial[30];    ///< serial number
extern char g_Modelo[30];    ///< model
extern char g_Tipo[15];      ///< type
extern char g_VersaoSB[15];  ///< version of the basic software
