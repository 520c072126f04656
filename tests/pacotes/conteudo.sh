#!/bin/sh
# What stands in the packages, and how the binaries in them were built: conteudo.sh BUILD.
set -eu
construcao=$1
fontes=$(cd "$(dirname "$0")/../.." && pwd)
raiz=$construcao/conteudo

falha() { echo "tests/pacotes: $*" >&2; exit 1; }

rm -rf "$raiz"
for pacote in "$construcao"/*.deb; do
  dpkg-deb -x "$pacote" "$raiz"
  nome=$(dpkg-deb -f "$pacote" Package)
  for documento in copyright changelog.gz changelog.Debian.gz; do
    [ -s "$raiz/usr/share/doc/$nome/$documento" ] || falha "$nome has no $documento"
  done
  gzip -dc "$raiz/usr/share/doc/$nome/changelog.gz" | cmp - "$fontes/CHANGELOG.md" || falha "$nome: another changelog"
done

# Documents and examples, each as it stands in the tree.
documentos=$raiz/usr/share/doc/libcotepe-dev
cmp "$fontes/docs/embedding.md" "$documentos/embedding.md"
diff -r "$fontes/examples" "$documentos/examples"

# Hardened: compiled with the checked calls of the C library, and every symbol bound at once. Stripped.
grep '^  FLAGS = ' "$construcao/build.ninja" >"$construcao/flags.txt"
! grep -v -e '-D_FORTIFY_SOURCE=2' "$construcao/flags.txt" || falha "compiled without checked calls"
! grep -v -e '-fstack-protector-strong' "$construcao/flags.txt" || falha "compiled without guards on the stack"
for binario in $(find "$raiz/usr" -path '*/bin/*' -o -name 'lib*.so.*.*'); do
  readelf -d "$binario" | grep -q 'FLAGS.*NOW' || falha "$binario: not bound at once"
  readelf -lW "$binario" | grep -q GNU_RELRO || falha "$binario: no read-only relocations"
  ! readelf -SW "$binario" | grep -qE ' \.(debug_info|symtab) ' || falha "$binario: not stripped"
done
for biblioteca in "$raiz"/usr/lib/*/lib*.a; do
  ! readelf -SW "$biblioteca" 2>/dev/null | grep -q ' \.debug_' || falha "$biblioteca: not stripped"
  nm "$biblioteca" | grep -q ' T ' || falha "$biblioteca: stripped of its symbols"
done

# The file of symbols in a library's package is that of the library.
for pacote in "$construcao"/libcotepe[0-9]*.deb "$construcao"/libcotepe-sign[0-9]*.deb; do
  [ -f "$pacote" ] || continue  # built without signatures
  nome=$(dpkg-deb -f "$pacote" Package)
  versao=$(dpkg-deb -f "$pacote" Version)
  dpkg-deb -I "$pacote" symbols >"$construcao/symbols"
  mkdir -p "$construcao/gensymbols/debian"
  printf 'Source: cotepe\n\nPackage: %s\nArchitecture: any\n' "$nome" >"$construcao/gensymbols/debian/control"
  (cd "$construcao/gensymbols" && dpkg-gensymbols -q -c4 "-p$nome" "-v$versao" "-I../symbols" -O../symbols.novo \
    "-e$(cd ../conteudo/usr/lib/*/ && pwd)/${nome%%[0-9]*}.so.$(echo "$versao" | sed 's/-.*//')") || falha "the file of symbols of $nome"
  cmp "$construcao/symbols" "$construcao/symbols.novo"
done
! dpkg-deb -f "$construcao"/libcotepe[0-9]*.deb Depends | grep -q libssl || falha "libcotepe needs OpenSSL"
echo "packages: documents, examples, hardening and symbols as they should be"
