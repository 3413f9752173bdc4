#!/bin/sh
# Installs the library from a build tree into a scratch prefix and builds the example
# program against it as a user would: through find_package, through add_subdirectory
# and through pkg-config, with g++ and with clang++. The program must report the model
# counts the installed driver reports for the same deck.
#
# usage: consumers.sh SOURCE_DIR BUILD_DIR WORK_DIR
set -eu
src=$1 build=$2 work=$3
prefix=$work/prefix
deck=$src/examples/beam.inp

fail() {
    echo "consumers.sh: $*" >&2
    exit 1
}

generator=
command -v ninja >/dev/null 2>&1 && generator="-G Ninja"
launcher=
command -v ccache >/dev/null 2>&1 && launcher=-DCMAKE_CXX_COMPILER_LAUNCHER=ccache

rm -rf "$work"
mkdir -p "$work"
cmake --install "$build" --prefix "$prefix" >"$work/install.log" || { cat "$work/install.log"; fail "install failed"; }

# "<i> instances, <n> nodes, <e> elements" from the installed driver's summary.
"$prefix/bin/inpdeck" "$deck" >/dev/null 2>"$work/driver.log" || fail "the installed driver failed on $deck"
expected=$(sed -n 's/.*model: [0-9]* parts, \([0-9]* instances, [0-9]* nodes, [0-9]* elements\),.*/\1/p' "$work/driver.log")
[ -n "$expected" ] || fail "no model counts in the driver's summary: $(cat "$work/driver.log")"

expect_counts() {  # program, how it was built
    "$1" "$deck" >"$work/out.log" 2>&1 || { cat "$work/out.log"; fail "$2: the program failed"; }
    grep -q "$expected;" "$work/out.log" || fail "$2: expected \"$expected\", got: $(cat "$work/out.log")"
    echo "$2: $(cat "$work/out.log")"
}

# The installed headers are exactly those inp.h reaches: a missing one fails the
# compile here and is named, one too many shows in the comparison.
echo '#include <inp/inp.h>' | c++ -std=c++17 -I"$prefix/include" -x c++ -MM - >"$work/headers.d" \
    || fail "inp.h does not compile against the prefix alone"
reached=$(tr ' \\' '\n\n' <"$work/headers.d" | sed -n 's|.*/include/inp/||p' | sort -u)
installed=$(ls "$prefix/include/inp" | sort)
[ "$reached" = "$installed" ] || fail "installed headers that inp.h does not reach:
$(echo "$installed" | grep -vxF "$reached")"

compilers=g++
if command -v clang++ >/dev/null 2>&1; then
    compilers="g++ clang++"
else
    echo "consumers.sh: no clang++ on this machine; g++ only"
fi

for cxx in $compilers; do
    # find_package, with the scratch prefix as the only place the package can come from.
    dir=$work/consumer-$cxx
    cmake -S "$src/examples/consumer" -B "$dir" $generator -DCMAKE_CXX_COMPILER=$cxx \
        -DCMAKE_PREFIX_PATH="$prefix" -DCMAKE_FIND_USE_PACKAGE_REGISTRY=OFF >"$work/configure.log" \
        || { cat "$work/configure.log"; fail "$cxx: find_package consumer does not configure"; }
    grep -qx "inp_DIR:PATH=$prefix/.*" "$dir/CMakeCache.txt" || fail "$cxx: the package was not taken from $prefix"
    cmake --build "$dir" -j 2 >"$work/build.log" || { cat "$work/build.log"; fail "$cxx: find_package consumer does not build"; }
    expect_counts "$dir/deck_counts" "find_package, $cxx"

    # add_subdirectory of the checkout: the library builds inside the consumer's tree,
    # unoptimised because only the wiring is under test here.
    dir=$work/subproject-$cxx
    cmake -S "$src/examples/consumer-subproject" -B "$dir" $generator -DCMAKE_CXX_COMPILER=$cxx $launcher \
        -DCMAKE_BUILD_TYPE= -DCMAKE_EXPORT_COMPILE_COMMANDS=ON >"$work/configure.log" \
        || { cat "$work/configure.log"; fail "$cxx: subproject consumer does not configure"; }
    cmake --build "$dir" -j 2 >"$work/build.log" || { cat "$work/build.log"; fail "$cxx: subproject consumer does not build"; }
    expect_counts "$dir/deck_counts" "add_subdirectory, $cxx"
    # The library's warnings are its own business: the parent's program compiles as it was told.
    grep 'deck_counts.cpp' "$dir/compile_commands.json" | grep -q -e '-Wextra' \
        && fail "$cxx: the subproject forced its compile options on the parent"
    [ ! -e "$dir/inpdeck/inp_tests" ] || fail "$cxx: the subproject built its tests"
done

# pkg-config, the way a Makefile would use it.
pc=$(find "$prefix" -name inp.pc)
[ -n "$pc" ] || fail "no inp.pc installed"
export PKG_CONFIG_PATH="$(dirname "$pc")${PKG_CONFIG_PATH:+:$PKG_CONFIG_PATH}"
command -v pkg-config >/dev/null 2>&1 || fail "pkg-config is needed"
[ "$("$prefix/bin/inpdeck" --version)" = "inpdeck $(pkg-config --modversion inp)" ] \
    || fail "inp.pc gives another version than the driver"
c++ -std=c++17 -o "$work/deck_counts-pc" "$src/examples/consumer/deck_counts.cpp" $(pkg-config --cflags --libs inp) \
    -Wl,-rpath,"$(pkg-config --variable=libdir inp)" || fail "pkg-config build failed"
expect_counts "$work/deck_counts-pc" "pkg-config, c++"
