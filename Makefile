# The two commands of the README:
#   make demo   builds the Linux program and runs the letter example
#   make test   installs what is missing, builds both targets, runs every test
.PHONY: demo test deps layers linux linux-asan windows unit asan-unit windows-unit e2e asan-e2e windows-e2e faults guide editors bench fuzz fuzz-smoke package windows-dist windows-install-test clean

JOBS ?= $(shell nproc)

demo: linux
	./build/linux/scrivolt /set Name World /in examples/letter/letter.txt /out build/letter-out.txt /go
	@cat build/letter-out.txt
	./build/linux/scrivolt /commandfile examples/invitations/invitations.txt
	@cat build/invitation-ann.txt build/invitation-bob.txt

deps:
	./scripts/install_dependencies.sh

linux:
	cmake --preset linux >/dev/null
	cmake --build build/linux -j $(JOBS)

linux-asan:
	cmake --preset linux-asan >/dev/null
	cmake --build build/linux-asan -j $(JOBS)

windows:
	cmake --preset windows >/dev/null
	cmake --build build/windows -j $(JOBS)

layers:
	./tests/layers/check_includes.sh

unit: linux
	./build/linux/tests/scrivolt_tests --gtest_brief=1

asan-unit: linux-asan
	./build/linux-asan/tests/scrivolt_tests --gtest_brief=1

windows-unit: windows
	./scripts/test_windows.sh build/windows

e2e: linux
	./tests/e2e/run.sh build/linux/scrivolt

# The same cases against the program built with AddressSanitizer and
# UndefinedBehaviorSanitizer.
asan-e2e: linux-asan
	./tests/e2e/run.sh build/linux-asan/scrivolt

# Killed runs, full disks, file-size limits, devices and links, and very
# large inputs (several GB of memory, some minutes; --quick skips those).
faults: linux
	./tests/faults/run.sh build/linux/scrivolt

# Every fuzz target for 20 seconds (part of the test), or for FUZZ_SECONDS
# (default 600) each.
fuzz-smoke:
	./scripts/fuzz.sh 20

fuzz:
	./scripts/fuzz.sh $(or $(FUZZ_SECONDS),600)

# Every example of docs/guide.md, run and compared with what the guide shows.
guide: linux
	./tests/guide/run.sh build/linux/scrivolt

# The TextMate grammar against its sample (vscode-tmgrammar-test from npm,
# installed into build/editor-tools) and the Vim syntax file.
editors:
	[ -x build/editor-tools/node_modules/.bin/vscode-tmgrammar-test ] || \
	  npm install --silent --no-audit --no-fund --prefix build/editor-tools vscode-tmgrammar-test@0.1.3
	build/editor-tools/node_modules/.bin/vscode-tmgrammar-test -g editors/textmate/scrivolt.tmLanguage.json "tests/editors/*.scrivolt"
	./tests/editors/vim_syntax.sh

bench:
	./bench/run.sh

# The Windows zip and installer (build/windows/dist/), and a silent install,
# run and uninstall of the installer under Wine.
windows-dist: windows
	./packaging/windows/make_dist.sh build/windows

windows-install-test: windows-dist
	xvfb-run -a ./packaging/windows/test_install.sh build/windows

# The Linux packages: build/linux/scrivolt_11.3.3_amd64.deb and
# build/linux/scrivolt-11.3.3-linux-x86_64.tar.gz.
package: linux
	cd build/linux && cpack

windows-e2e: windows
	./scripts/test_windows.sh build/windows --e2e

test: deps
	$(MAKE) layers
	$(MAKE) unit
	$(MAKE) asan-unit
	$(MAKE) windows-unit
	$(MAKE) e2e
	$(MAKE) guide
	$(MAKE) editors
	$(MAKE) asan-e2e
	$(MAKE) fuzz-smoke
	$(MAKE) windows-e2e
	$(MAKE) windows-install-test
	@echo "All tests passed."

clean:
	rm -rf build
