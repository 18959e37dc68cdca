# Two commands set everything up on a fresh Debian 12 machine: `make test` and `make demo`.

BUILD_PACKAGES := cmake ninja-build g++ pkg-config libgtest-dev libgmock-dev libbenchmark-dev libpugixml-dev nlohmann-json3-dev
QT_PACKAGES    := qt6-base-dev qt6-svg-dev libgl-dev fonts-dejavu-core xvfb xauth
# Only for make bench-peers: the other property list measured beside ours.
PEER_PACKAGES  := libwxgtk3.2-dev xvfb xauth
JOBS           ?= $(shell nproc)

.PHONY: all deps build test test-sanitize fuzz bench bench-peers demo docs clean

all: build

deps:
	@tools/ensure-packages.sh $(BUILD_PACKAGES) $(QT_PACKAGES)

build: deps
	cmake --preset default
	cmake --build --preset default -j $(JOBS)

test: build
	ctest --preset default -j $(JOBS)

test-sanitize: deps
	cmake --preset sanitize
	cmake --build --preset sanitize -j $(JOBS)
	ctest --preset sanitize -j $(JOBS)

# The randomized user-input fuzzer under the sanitizers, as long as one likes:
# make fuzz SEEDS=100 STEPS=10000 [FIRST_SEED=1] [FUZZ_OFF=throwing,destroying]
SEEDS      ?= 20
STEPS      ?= 5000
FIRST_SEED ?= 1
FUZZ_OFF   ?=

fuzz: deps
	cmake --preset sanitize
	cmake --build --preset sanitize -j $(JOBS) --target txal-fuzz
	build/sanitize/tests/fuzz/txal-fuzz --seeds $(SEEDS) --steps $(STEPS) --first-seed $(FIRST_SEED) $(if $(FUZZ_OFF),--off $(FUZZ_OFF))

bench: build
	build/default/bench/txal_bench

# The same workloads on our list, a QTreeWidget and a wxPropertyGrid, each size in fresh
# processes; writes build/bench-peers/report.md and report.png.
bench-peers: deps
	@tools/ensure-packages.sh $(PEER_PACKAGES)
	cmake --preset default
	cmake --build --preset default -j $(JOBS) --target txal-peer-ours txal-peer-qtreewidget txal-peer-wxpropertygrid txal-peer-report
	bench/peers/run-peers.sh --bin-dir build/default/bench/peers --out-dir build/bench-peers

demo: build
	@if [ -x build/default/demo/txal-demo ]; then \
	  tools/run-demo.sh build/default/demo/txal-demo out; \
	else \
	  echo "The demo arrives with a later issue; nothing to run yet."; \
	fi

# The API reference from the exported headers, into build/docs/html.
docs:
	@tools/ensure-packages.sh doxygen
	tools/make-docs.sh

clean:
	rm -rf build out
