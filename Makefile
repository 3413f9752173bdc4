# Thin wrapper over CMake; every target builds what it needs first.
BUILD      ?= build
ASAN_BUILD ?= build-asan
JOBS       ?= $(shell nproc 2>/dev/null || echo 2)
EXAMPLE    ?= examples/beam.inp
RUN_ARGS   ?= $(EXAMPLE)
CMAKE_GEN  := $(shell command -v ninja >/dev/null 2>&1 && echo "-G Ninja")
FUZZ_BUILD ?= build-fuzz
FUZZ_SECONDS ?= 60
FUZZ_JOBS  ?= 1
BENCH_ARGS ?=
PREFIX     ?= /usr/local

.PHONY: all build run test asan bench bench-large fuzz install clean

all: build

$(BUILD)/build.ninja $(BUILD)/Makefile:
	cmake -S . -B $(BUILD) $(CMAKE_GEN) -DCMAKE_BUILD_TYPE=RelWithDebInfo

build: | $(BUILD)/build.ninja
	cmake --build $(BUILD) -j $(JOBS)

run: build
	./$(BUILD)/inpdeck $(RUN_ARGS)

test: build
	cd $(BUILD) && ctest --output-on-failure -j $(JOBS)

# The library, its headers under include/inp/, the CMake package, inp.pc and the driver.
# DESTDIR=... stages the files below another root, as packagers do.
install: build
	cmake --install $(BUILD) --prefix $(PREFIX)

asan:
	cmake -S . -B $(ASAN_BUILD) $(CMAKE_GEN) -DCMAKE_BUILD_TYPE=Debug -DINP_SANITIZE=ON
	cmake --build $(ASAN_BUILD) -j $(JOBS)
	cd $(ASAN_BUILD) && ASAN_OPTIONS=detect_leaks=1 UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1 \
	  ctest --output-on-failure -j $(JOBS)

# Generates decks of 20^3, 50^3 and 100^3 elements under $(BUILD)/bench, times each
# phase against a plain fgets/strtod reader of the same file, prints the table and
# writes it to docs/performance.md. Optimised build, whatever $(BUILD) was made with.
bench: | $(BUILD)/build.ninja
	cmake -S . -B $(BUILD) -DCMAKE_BUILD_TYPE=RelWithDebInfo
	cmake --build $(BUILD) -j $(JOBS) --target inp_bench inpdeck
	./$(BUILD)/inp_bench $(BENCH_ARGS)

# The flat deck at 100^3 and at 200^3 (8 M elements, 0.9 GB, written once and kept in
# $(BUILD)/bench), to show how time and memory grow with the deck; written to
# docs/performance-large.md. Needs some 4 GB of memory and a few minutes.
bench-large: | $(BUILD)/build.ninja
	cmake -S . -B $(BUILD) -DCMAKE_BUILD_TYPE=RelWithDebInfo
	cmake --build $(BUILD) -j $(JOBS) --target inp_bench inpdeck
	./$(BUILD)/inp_bench --sizes 100,200 --variants flat --out docs/performance-large.md

# libFuzzer with ASan and UBSan, clang only. New inputs collect in $(FUZZ_BUILD)/corpus;
# findings land in $(FUZZ_BUILD)/artifacts. Paths are absolute because the target
# works in a directory of its own. FUZZ_TARGET=inp_fuzz_roundtrip fuzzes the round trip
# of printing instead. An input of 64 KB that takes a second is a quadratic one.
# Entropic scheduling is off: with a library this size its bookkeeping took a third of
# the run, and without it the same minutes run some 40 % more inputs and reach further.
FUZZ_TARGET ?= inp_fuzz_deck
# Short allocation stacks and a small quarantine: a finding is replayed under the ASan
# build of the test suite for its full report, and the fuzzer runs half again as fast.
FUZZ_ASAN_OPTIONS ?= detect_leaks=1:malloc_context_size=5:quarantine_size_mb=16
fuzz:
	cmake -S . -B $(FUZZ_BUILD) $(CMAKE_GEN) -DCMAKE_BUILD_TYPE=RelWithDebInfo \
	  -DCMAKE_CXX_COMPILER=clang++ -DINP_FUZZ=ON
	cmake --build $(FUZZ_BUILD) -j $(JOBS) --target $(FUZZ_TARGET)
	mkdir -p $(FUZZ_BUILD)/corpus $(FUZZ_BUILD)/artifacts
	cd $(FUZZ_BUILD) && ASAN_OPTIONS=$(FUZZ_ASAN_OPTIONS) $(CURDIR)/$(FUZZ_BUILD)/$(FUZZ_TARGET) \
	  -max_total_time=$(FUZZ_SECONDS) -jobs=$(FUZZ_JOBS) -workers=$(FUZZ_JOBS) \
	  -timeout=1 -rss_limit_mb=4096 -max_len=65536 -entropic=0 -print_final_stats=1 \
	  -artifact_prefix=$(CURDIR)/$(FUZZ_BUILD)/artifacts/ \
	  $(CURDIR)/$(FUZZ_BUILD)/corpus $(CURDIR)/fuzz/seeds $(CURDIR)/examples $(CURDIR)/tests/fuzz-corpus

clean:
	rm -rf $(BUILD) $(ASAN_BUILD) $(FUZZ_BUILD)
