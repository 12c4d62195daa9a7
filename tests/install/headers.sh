# Compiles every installed header alone: headers.sh <include folder> <working folder>
set -euo pipefail

mkdir -p "$2"
cd "$1"
flags="-std=c++17 -Wall -Wextra -Werror -I. $(pkg-config --cflags hmi-shared | sed 's/-I\([^ ]*qt5\)/-isystem \1/g')"

# Most of the time goes into what nearly all include: QObject, or all of D-Bus for what is generated and its users.
# A header that includes nothing of Qt or of the project gets nothing here either.
precompile() {
    echo "#include <$2>" >"$1.h"
    $CXX $flags -x c++-header "$1.h" -o "$1.h.gch"
}
precompile "$2/object" QObject
precompile "$2/dbus" QtDBus/QtDBus

export flags folder=$2
find . -name '*.h' -printf '%P\n' | sort | xargs -n 1 -P 2 bash -c '
    before=
    grep -q "^#include <[Qhp]" "$0" && before="-include $folder/object.h"
    grep -Eq "^#include <(QtDBus/|[A-Za-z]+Interface|.*(Update|Notification)Manager)" "$0" && before="-include $folder/dbus.h"
    echo "#include <$0>" | $CXX $flags $before -fsyntax-only -x c++ - || { echo "$0 cannot be included alone." && exit 255; }'
