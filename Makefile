# The two commands of the README:
#   make demo   builds the Linux program and runs the letter example
#   make test   installs what is missing, builds both targets, runs every test
.PHONY: demo test deps layers linux linux-asan windows unit asan-unit windows-unit e2e windows-e2e bench fuzz clean

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

windows-e2e: windows
	./scripts/test_windows.sh build/windows --e2e

test: deps
	$(MAKE) layers
	$(MAKE) unit
	$(MAKE) asan-unit
	$(MAKE) windows-unit
	$(MAKE) e2e
	$(MAKE) windows-e2e
	@echo "All tests passed."

clean:
	rm -rf build
