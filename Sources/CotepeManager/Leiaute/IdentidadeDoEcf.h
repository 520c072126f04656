// The printer's identity, which a run reads before its first register.
#pragma once

#include <cstdint>

namespace cotepe {

/// Its query; of several rows the last one counts.
inline constexpr char kConsultaDaIdentidade[] =
    "select ecf.num_serie, ecf.modelo, usuario.seq_usuario from dados_ecf AS ecf LEFT JOIN dados_usuario AS "
    "usuario";

/// Its columns.
enum ColunaDaIdentidade : std::uint8_t { kColunaSerie, kColunaModelo, kColunaUsuario };

}  // namespace cotepe
