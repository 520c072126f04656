#!/bin/sh
# nomes.sh ROOT: no two headers and no two types of the sources have one name. A second type in one namespace is
# undefined behaviour that no compiler tells, and elsewhere a trap for who reads.
set -eu
cd "$1"

cabecalhos() { find Sources libs Host Tools -name '*.h' | sed 's:.*/::'; }

# Those of a namespace: they begin in the first column, and what only declares one ends before a brace.
tipos() {
  find Sources libs Host Tools -name '*.h' -o -name '*.cpp' | sort | xargs sed -nE \
    -e 's/^using ([A-Za-z0-9_]+) = .*$/\1/p' -e '/^[^{]*;/d' -e 's/^(struct|class|union|enum|enum class) ([A-Za-z0-9_]+)( *:[^:].*| *[{].*| final .*)$/\2/p'
}

repetidos=$({ cabecalhos | sort | uniq -d; tipos | sort | uniq -d; })
[ -z "$repetidos" ] || { echo "more than one has this name:" "$repetidos"; exit 1; }
[ "$(cabecalhos | wc -l)" -gt 50 ] && [ "$(tipos | wc -l)" -gt 100 ]
