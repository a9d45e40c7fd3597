# Everything a developer needs; the work itself is CMake's and the tests'.
#   make serve   build and serve the sample site on port 7007
#   make test    build and pass all tests
#   make package the runnable tree as a .tar, built by a profile of the benchmarks and the sample site
#   make soak    ten minutes of use, abuse and disturbance (SOAK_SECONDS=60 for one)
#   make windows build the programs for Windows into build/windows/app, from here
#   make installer  and what installs them there, build/windows/quorvane-server-setup.exe
#   make bench   print speeds beside reference programs, where those are installed
#   make bench-windows  print those of the engine in the programs for Windows beside this system's
APP := build/app
JOBS ?= $(shell nproc)

.PHONY: build package serve test unit blackbox faults databases soak browser terminal service hosting bench bench-windows lint \
  format clean build-deps test-deps windows-deps windows installer test-windows

build: build-deps
	@cmake --preset release >/dev/null
	@cmake --build --preset release -j $(JOBS)

# Built twice: by programs that note what they do, and by their notes.
package: build-deps
	@cmake --preset package -DQUORVANE_PROFILE=record >/dev/null
	@cmake --build --preset package -j $(JOBS)
	@tools/train build/package/quorvane-server
	@cmake --preset package -DQUORVANE_PROFILE=use >/dev/null
	@cmake --build --preset package -j $(JOBS)
	@tar -C build/package -cf build/quorvane-server.tar quorvane-server
	@echo build/quorvane-server.tar

# The tool that packs language tables runs here, so the programs of this system come first.
windows: build windows-deps
	@tools/windows-libraries
	@cmake --preset windows >/dev/null
	@cmake --build --preset windows -j $(JOBS)

VERSION = $(shell sed -n '/^project/s/.*VERSION \([0-9.]*\).*/\1/p' CMakeLists.txt)

installer: windows
	@makensis -V2 -WX -DVERSION=$(VERSION) -DSOURCE=$(CURDIR) -DTREE=$(CURDIR)/build/windows/app \
	  -DOUTPUT=$(CURDIR)/build/windows/quorvane-server-setup.exe packaging/windows/installer.nsi
	@echo build/windows/quorvane-server-setup.exe

# Under Wine, on a screen that nobody sees.
test-windows: installer test-deps
	@cmake --build --preset windows -j $(JOBS) --target windows_tests
	@timeout 1800 xvfb-run -a python3 tests/windows build/windows/app

serve: build
	@tools/serve $(APP)

test: unit blackbox faults databases browser terminal service hosting

# The tests that are programs, and the black-box tests once, under AddressSanitizer and
# UndefinedBehaviorSanitizer.
unit: build-deps test-deps
	@cmake --preset sanitize >/dev/null
	@cmake --build --preset sanitize -j $(JOBS)
	@ctest --test-dir build/sanitize --output-on-failure -j $(JOBS)
	@python3 tests/blackbox build/sanitize/app

blackbox: build test-deps
	@python3 tests/blackbox $(APP)

# What goes wrong: attacks, starved machines, mistakes of operators.
faults: build test-deps
	@python3 tests/faults $(APP)

# Databases of other systems; the tests start their servers.
databases: build test-deps
	@python3 tests/databases $(APP)

# A server under everything at once; takes its time, so it is no part of the tests.
SOAK_SECONDS ?= 600
soak: build test-deps
	@python3 tests/soak $(APP) $(SOAK_SECONDS)

browser: build test-deps
	@python3 tests/browser $(APP)

terminal: build test-deps
	@python3 tests/terminal $(APP)

service: build test-deps
	@python3 tests/service $(APP)

# Behind nginx, HAProxy and Caddy, and several instances beside Redis, all of which the tests start
# with the recipes of docs/hosting.md.
hosting: build test-deps
	@python3 tests/hosting $(APP)

bench: build
	@bench/run

bench-windows: windows test-deps
	@xvfb-run -a bench/engine/run.py --windows build/windows/app $(APP)

lint: build test-deps
	@tools/lint

format: test-deps
	@git ls-files '*.h' '*.cpp' | xargs clang-format -i

build-deps:
	@tools/deps build

test-deps:
	@tools/deps test

windows-deps:
	@tools/deps windows

clean:
	rm -rf build
