# Everything a developer needs; the work itself is CMake's and the tests'.
#   make serve   build and serve the sample site on port 7007
#   make test    build and pass all tests
#   make bench   print speeds beside reference programs, where those are installed
APP := build/app
JOBS ?= $(shell nproc)

.PHONY: build serve test unit blackbox faults browser terminal service bench lint format deps clean

build: deps
	@cmake --preset release >/dev/null
	@cmake --build --preset release -j $(JOBS)

serve: build
	@tools/serve $(APP)

test: unit blackbox faults browser terminal service

# The tests that are programs, and the black-box tests once, under AddressSanitizer and
# UndefinedBehaviorSanitizer.
unit: deps
	@cmake --preset sanitize >/dev/null
	@cmake --build --preset sanitize -j $(JOBS)
	@ctest --test-dir build/sanitize --output-on-failure -j $(JOBS)
	@python3 tests/blackbox build/sanitize/app

blackbox: build
	@python3 tests/blackbox $(APP)

# What goes wrong: attacks, starved machines, mistakes of operators.
faults: build
	@python3 tests/faults $(APP)

browser: build
	@python3 tests/browser $(APP)

terminal: build
	@python3 tests/terminal $(APP)

service: build
	@python3 tests/service $(APP)

bench: build
	@bench/run

lint: build
	@tools/lint

format:
	@git ls-files '*.h' '*.cpp' | xargs clang-format -i

deps:
	@tools/deps

clean:
	rm -rf build
