# The two commands a fresh Debian 12 machine needs: `make run` and `make test`. Each installs
# only what its task needs (scripts/install-deps.sh groups).
PRESET ?= release
BUILD := build/$(PRESET)
FUZZ_SECONDS ?= 20
DEPS := bash scripts/install-deps.sh

.PHONY: all build app run test bench fuzz lint package clean

all: build

# The program alone (build/app): what `make run` starts and `make package` packs.
app:
	@$(DEPS) build run
	@cmake --preset app >/dev/null
	@cmake --build --preset app

# The whole tree with its tests and benchmarks.
build:
	@$(DEPS) build test
	@cmake --preset $(PRESET) >/dev/null
	@cmake --build --preset $(PRESET)

run: app
	@bash scripts/run.sh build/app/qlvcallt

test: build
	@bash scripts/test.sh $(BUILD)

bench:
	@$(DEPS) build test bench
	@cmake --preset release >/dev/null
	@cmake --build --preset release
	@bash bench/run.sh build/release

fuzz:
	@$(DEPS) build test
	@cmake --preset fuzz >/dev/null
	@cmake --build --preset fuzz
	@bash scripts/fuzz.sh build/fuzz $(FUZZ_SECONDS)

lint:
	@$(DEPS) build test
	@cmake --preset release >/dev/null
	@bash scripts/lint.sh build/release

# The Debian package, build/app/qlvcallt_<version>_<arch>.deb.
package: app
	@$(DEPS) package
	@cd build/app && cpack
	@ls build/app/*.deb

clean:
	rm -rf build
