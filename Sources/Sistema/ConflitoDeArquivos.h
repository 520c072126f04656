// Two names for one file.
#pragma once

#include <string>

namespace cotepe {

/// Whether two paths are the same file, or would be once it is created.
bool mesmoArquivo(const std::string& a, const std::string& b);

/// Whether a path is the database, or one of the files that SQLite keeps beside it under the database's name
/// and -wal, -shm or -journal, whether it exists or not.
bool pertenceAoBanco(const std::string& caminho, const std::string& banco);

/// Whether the file open as a descriptor is the one at a path.
bool abertoComo(int descritor, const std::string& caminho);

}  // namespace cotepe
