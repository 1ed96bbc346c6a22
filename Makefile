# The two commands of the README, and a few more for developers.
#   make run    install what is missing, build, start Tarnwick
#   make test   install what is missing, build, run the whole suite headless
BUILD_DIR ?= build
ASAN_BUILD_DIR ?= build-asan
BENCH_BUILD_DIR ?= build-bench
FUZZ_BUILD_DIR ?= build-fuzz
PKG_BUILD_DIR ?= build-pkg
PREFIX ?= /usr/local
JOBS ?= $(shell nproc 2>/dev/null || echo 2)

.PHONY: all bootstrap configure build programs run test test-asan bench fuzz mutants test-share install package screenshots clean

all: build

bootstrap:
	@bash scripts/bootstrap

configure: bootstrap
	@cmake -S . -B $(BUILD_DIR) -DCMAKE_INSTALL_PREFIX=$(PREFIX) >/dev/null

build: configure
	@cmake --build $(BUILD_DIR) -j $(JOBS)

# The programs alone, for the targets that need no test suite.
programs: configure
	@cmake --build $(BUILD_DIR) -j $(JOBS) --target tarnwick tarnwick-lint tarnwick-lsp

run: build
	@bash scripts/run-tarnwick $(BUILD_DIR)/src/tarnwick

test: build
	@cd $(BUILD_DIR) && QT_QPA_PLATFORM=offscreen ctest --output-on-failure -j $(JOBS)

test-asan: bootstrap
	@cmake -S . -B $(ASAN_BUILD_DIR) -DCMAKE_BUILD_TYPE=Debug -DTARNWICK_SANITIZE=ON >/dev/null
	@cmake --build $(ASAN_BUILD_DIR) -j $(JOBS)
	@cd $(ASAN_BUILD_DIR) && QT_QPA_PLATFORM=offscreen ASAN_OPTIONS=detect_leaks=1 \
	  UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1 ctest --output-on-failure -j $(JOBS)

bench:
	@TARNWICK_BOOTSTRAP_EXTRAS=bench bash scripts/bootstrap
	@cmake -S . -B $(BENCH_BUILD_DIR) -DCMAKE_BUILD_TYPE=Release -DTARNWICK_BUILD_BENCH=ON >/dev/null
	@cmake --build $(BENCH_BUILD_DIR) -j $(JOBS)
	@QT_QPA_PLATFORM=offscreen bash bench/run $(BENCH_BUILD_DIR)

fuzz:
	@TARNWICK_BOOTSTRAP_EXTRAS=fuzz bash scripts/bootstrap
	@CXX=clang++ CC=clang cmake -S . -B $(FUZZ_BUILD_DIR) -DCMAKE_BUILD_TYPE=RelWithDebInfo \
	  -DTARNWICK_BUILD_FUZZ=ON -DTARNWICK_BUILD_TESTS=OFF >/dev/null
	@cmake --build $(FUZZ_BUILD_DIR) -j $(JOBS) --target fuzz_analyser fuzz_lsp

# The share of test code in the project's code (the aim: 25 to 33 %).
test-share:
	@bash scripts/test-share

# Seeded faults against the whole suite in build-mutants/ (MUTANTS=M03,M07 for a few).
mutants: bootstrap
	@MUTANTS="$(MUTANTS)" python3 scripts/mutants

install: programs
	@cmake --install $(BUILD_DIR) --prefix $(PREFIX)

# The package is built from a Release tree of its own, without the tests.
package:
	@TARNWICK_BOOTSTRAP_EXTRAS=package bash scripts/bootstrap
	@cmake -S . -B $(PKG_BUILD_DIR) -DCMAKE_BUILD_TYPE=Release -DTARNWICK_BUILD_TESTS=OFF >/dev/null
	@cmake --build $(PKG_BUILD_DIR) -j $(JOBS)
	@cd $(PKG_BUILD_DIR) && rm -f tarnwick_*.deb && cpack -G DEB >/dev/null && ls -1 "$$PWD"/tarnwick_*.deb

screenshots: programs
	@TARNWICK_BOOTSTRAP_EXTRAS=screens bash scripts/bootstrap
	@bash scripts/screenshots $(BUILD_DIR)

clean:
	@rm -rf $(BUILD_DIR) $(ASAN_BUILD_DIR) $(BENCH_BUILD_DIR) $(FUZZ_BUILD_DIR) $(PKG_BUILD_DIR)
