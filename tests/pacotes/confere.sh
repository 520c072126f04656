#!/bin/sh
# The packages in a Debian that has nothing else: confere.sh BUILD [ROOT]. apt installs them there with what they
# depend on; the program, and a host in C, must do there what the program of the build does here. To be run by
# `unshare --mount`, which takes the root's /proc away at the end. Without ROOT the packages are unpacked into a folder
# of the build, and run from there with the libraries of this system.
set -eu
construcao=$1
instala=${2-}
feito=${2:+installed}
feito=${feito:-unpacked}
fontes=$(dirname "$0")/../..

falha() { echo "tests/pacotes: $*" >&2; exit 1; }
la() { chroot "$raiz" env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin DEBIAN_FRONTEND=noninteractive "$@"; }
apt() { la apt-get -qq -y -o APT::Install-Recommends=false "$@" >>"$construcao/apt.txt" 2>&1 || { cat "$construcao/apt.txt"; exit 1; }; }

compila() {
  pasta=$(echo "$raiz"/usr/lib/*/pkgconfig)
  # shellcheck disable=SC2046
  gcc --sysroot="$raiz" "$@" $(PKG_CONFIG_SYSROOT_DIR=$raiz PKG_CONFIG_LIBDIR=$pasta pkg-config --cflags --libs cotepe)
}

# mes PROGRAM...: a shop's days, their report, and both looked at, in the folder dia of where the program runs.
mes() {
  "$@" sample dia/loja.db --days 3 --coupons-per-day 5 --start 2024-01-01 --quiet &&
    "$@" generate --db dia/loja.db --from 01012024 --to 31012024 --layout 2 --quiet --output dia/loja.txt &&
    "$@" validate dia/loja.txt &&
    "$@" verify dia/loja.txt --db dia/loja.db
}

# parado FILE: a report with the time of E11 as the clock of examples/c has it.
parado() { sed '/^E11/s/^\(.\{122\}\)[0-9]\{14\}/\120240229083000/' "$1"; }

# In place of la and apt, and of the compiler that knows the root alone.
desempacota() {
  raiz=$(cd "$construcao" && pwd)/desempacotado
  rm -rf "$raiz"
  mkdir "$raiz"
  la() { (cd "$raiz" && env -i "PATH=$raiz/usr/bin:/usr/bin:/bin" "LD_LIBRARY_PATH=$(echo "$raiz"/usr/lib/*-linux-gnu)" "$@"); }
  apt() {
    [ "$1" = install ] || return 0
    shift
    for pacote; do dpkg-deb -x "$raiz$pacote" "$raiz"; done
  }
  compila() {
    libs=$(echo "$raiz"/usr/lib/*-linux-gnu)
    gcc -I"$raiz/usr/include/cotepe" -L"$libs" "$@" -lcotepe
  }
}

programa() {
  apt install /pacotes/cotepe.deb
  la cotepe --version | grep -qx "cotepe $versao" || falha "cotepe --version"
  la LC_ALL=C.UTF-8 LANGUAGE=pt_BR cotepe --help | grep -q '^Uso: cotepe' || falha "no Portuguese"
  mes la cotepe >"$construcao/dia/la.txt" 2>&1 || { cat "$construcao/dia/la.txt"; falha "the program"; }
  parado "$raiz/dia/loja.txt" | cmp "$construcao/esperado.txt" - || falha "another report than the build's program writes"
  echo "cotepe $versao: $feito; its report is that of the build's program"
  apt purge --autoremove cotepe
  [ -z "$instala" ] || ! la find /usr -name '*cotepe*' | grep . || falha "purge left these"
}

# Compiled with nothing but the root's headers and libraries, and run without the package that holds the headers.
biblioteca() {
  # shellcheck disable=SC2086
  apt install /pacotes/libcotepe.deb $assinatura /pacotes/libcotepe-dev.deb
  compila -o "$raiz/dia/hospedeiro" "$fontes/examples/c/main.c"
  apt purge --autoremove libcotepe-dev
  la dia/hospedeiro dia/loja.db dia/da_biblioteca.txt 01012024 31012024 | grep -qx "cotepe $versao: done" || falha "the host in C"
  cmp "$construcao/esperado.txt" "$raiz/dia/da_biblioteca.txt" || falha "another report than the program writes"
  readelf -d "$raiz/dia/hospedeiro" | grep -q 'NEEDED.*libcotepe\.so\.' || falha "not linked with the shared library"
  echo "libcotepe $versao: $feito; a host in C writes that report"
}

if [ -n "$instala" ]; then raiz=$(cd "$instala" && pwd); else desempacota; fi
versao=$(sed -n 's/^CMAKE_PROJECT_VERSION:STATIC=//p' "$construcao/CMakeCache.txt")
mkdir -p "$raiz/pacotes" "$raiz/dia"
rm -f "$raiz"/dia/*
cp "$construcao"/cotepe_*.deb "$raiz/pacotes/cotepe.deb"
cp "$construcao"/libcotepe[0-9]*.deb "$raiz/pacotes/libcotepe.deb"
cp "$construcao"/libcotepe-dev_*.deb "$raiz/pacotes/libcotepe-dev.deb"
assinatura=
for pacote in "$construcao"/libcotepe-sign[0-9]*.deb; do
  [ -f "$pacote" ] || continue  # built without signatures
  cp "$pacote" "$raiz/pacotes/libcotepe-sign.deb"
  assinatura=/pacotes/libcotepe-sign.deb
done
: >"$construcao/apt.txt"
if [ -n "$instala" ]; then
  mount -t proc proc "$raiz/proc"
  apt update
fi

programa_da_construcao=$(cd "$construcao" && pwd)/Tools/cotepe/cotepe
rm -rf "$construcao/dia"
mkdir "$construcao/dia"
(cd "$construcao" && mes "$programa_da_construcao" >dia/aqui.txt 2>&1)
parado "$construcao/dia/loja.txt" >"$construcao/esperado.txt"
programa
biblioteca
