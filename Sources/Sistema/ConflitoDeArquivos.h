// Two names for one file.
#pragma once

#include <string>

namespace cotepe {

/// Whether two paths are the same file, or would be when it is made.
bool mesmoArquivo(const std::string& a, const std::string& b);

/// Whether a path is the database, or one of the files that SQLite keeps beside it under the database's name
/// and -wal, -shm or -journal, there or not.
bool pertenceAoBanco(const std::string& caminho, const std::string& banco);

/// Whether the file that is open as a descriptor is the one of a path.
bool abertoComo(int descritor, const std::string& caminho);

}  // namespace cotepe
