// The name under which an existing report is handed in.
#pragma once

#include <string>

namespace cotepe::programa {

/// Whether a file name, without its folder, follows the law's pattern, as in MFxxxxxx_aaaammdd_hhmmss.TXT.
bool nomeDaLei(const std::string& nome);

/// The file name under which a report is handed in: its own if that follows the law's pattern; otherwise one
/// made of the command and the manufacture number in E01 and the date and hour in E11, or of the file if
/// there is no E11. Without E01 its own, too. Throws Falha (kUsoErrado) when it cannot be read.
std::string nomeDaEntrega(const std::string& relatorio);

}  // namespace cotepe::programa
