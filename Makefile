# The two commands a fresh Debian 12 machine needs: `make run` and `make test`.
PRESET ?= release
BUILD := build/$(PRESET)
FUZZ_SECONDS ?= 20

.PHONY: all deps build run test bench fuzz lint clean

all: build

deps:
	@bash scripts/install-deps.sh

build: deps
	@cmake --preset $(PRESET) >/dev/null
	@cmake --build --preset $(PRESET)

run: build
	@bash scripts/run.sh $(BUILD)/qlvcallt

test: build
	@bash scripts/test.sh $(BUILD)

bench: deps
	@cmake --preset release >/dev/null
	@cmake --build --preset release
	@bash bench/run.sh build/release

fuzz: deps
	@cmake --preset fuzz >/dev/null
	@cmake --build --preset fuzz
	@bash scripts/fuzz.sh build/fuzz $(FUZZ_SECONDS)

lint: deps
	@cmake --preset release >/dev/null
	@bash scripts/lint.sh build/release

clean:
	rm -rf build
