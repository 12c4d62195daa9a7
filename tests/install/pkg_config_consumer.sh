# Builds and runs a program with what pkg-config says: pkg_config_consumer.sh <source> <program>
set -euo pipefail

read -r -a flags <<<"$(pkg-config --cflags --libs 'hmi-shared >= 1.0')"
libraries=$(pkg-config --variable=libdir hmi-shared)
$CXX -std=c++17 ${CXXFLAGS:-} -o "$2" "$1" "${flags[@]}" "-Wl,-rpath,$libraries,-rpath-link,$libraries"
"$2"
