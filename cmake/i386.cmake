# 32-bit x86, in a Debian that has the libraries of that machine; see scripts/target.
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR i686)
set(CMAKE_CXX_COMPILER i686-linux-gnu-g++)
# The old floating point unit computes with 80 bits: not the doubles of every other machine. A char is as on ARM.
set(CMAKE_CXX_FLAGS_INIT "-msse2 -mfpmath=sse -funsigned-char")
set(ENV{PKG_CONFIG_LIBDIR} /usr/lib/i386-linux-gnu/pkgconfig:/usr/share/pkgconfig)
