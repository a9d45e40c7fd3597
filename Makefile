# Everything a developer needs; the work itself is CMake's and the tests'.
#   make serve   build and serve the sample site on port 7007
#   make test    build and pass all tests
#   make bench   print speeds beside reference programs, where those are installed
APP := build/app
JOBS ?= $(shell nproc)

.PHONY: build serve test unit blackbox browser terminal service sanitize bench lint format deps clean

build: deps
	@cmake --preset release >/dev/null
	@cmake --build --preset release -j $(JOBS)

serve: build
	@tools/serve $(APP)

test: build unit blackbox browser terminal service sanitize

unit: build
	@ctest --test-dir build/release --output-on-failure -j $(JOBS)

blackbox: build
	@python3 -m unittest discover -s tests/blackbox -t tests

browser: build
	@python3 -m unittest discover -s tests/browser -t tests

terminal: build
	@python3 -m unittest discover -s tests/terminal -t tests

service: build
	@python3 -m unittest discover -s tests/service -t tests

sanitize: deps
	@cmake --preset sanitize >/dev/null
	@cmake --build --preset sanitize -j $(JOBS)
	@ctest --test-dir build/sanitize --output-on-failure -j $(JOBS)

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
