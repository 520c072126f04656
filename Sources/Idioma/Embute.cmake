# DE: a file; PARA: the source that holds its bytes as kCatalogoPortugues.
file(READ ${DE} bytes HEX)
string(REGEX REPLACE "(..)" "0x\\1," bytes "${bytes}")
file(WRITE ${PARA} "namespace cotepe {\nextern const unsigned char kCatalogoPortugues[];
const unsigned char kCatalogoPortugues[] = {${bytes}};\n}  // namespace cotepe\n")
