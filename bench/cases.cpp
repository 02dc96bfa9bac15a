// bench_cases: absolute times of each store by itself, with Google Benchmark.
//
// For finding out where time is spent and whether a change helps. To compare the project with its
// peers use bench_ratios, which runs both in turn.
#include <benchmark/benchmark.h>

#include <bit>
#include <filesystem>
#include <map>
#include <memory>
#include <string>

#include "bench/lmdb_store.h"
#include "bench/own_folder.h"
#include "bench/pairs.h"
#include "bench/sample_components.h"
#include "bench/sqlite_store.h"
#include "bench/text_trim.h"
#include "bench/zel_store.h"
#include "frame/trim7.h"
#include "purecomp/fill_in.h"

namespace {

using namespace zel::bench;

std::filesystem::path const& Folder() {
  static OwnFolder const folder(std::filesystem::temp_directory_path());
  return folder.Path();
}

// Items and keys of one size, made once.
struct Source {
  explicit Source(std::size_t items)
      : set(MakeDataSet(items)),
        shuffled(Shuffled(set.items)),
        present(KeysOf(shuffled)),
        absent(Shuffled(set.absent)) {}
  DataSet set;
  std::vector<Item> shuffled;
  std::vector<Pair> present;
  std::vector<Pair> absent;
};

Source const& SourceOf(std::size_t items) {
  static std::map<std::size_t, std::unique_ptr<Source>> sources;
  std::unique_ptr<Source>& source = sources[items];
  if (source == nullptr) source = std::make_unique<Source>(items);
  return *source;
}

struct Zel : ZelStore {
  Zel() : ZelStore(Folder()) {}
};
struct Lmdb : LmdbStore {
  Lmdb() : LmdbStore(Folder()) {}
};
struct Sqlite : SqliteStore {
  Sqlite() : SqliteStore(Folder(), SqliteTable::kPair) {}
};
struct SqliteRows : SqliteStore {
  SqliteRows() : SqliteStore(Folder(), SqliteTable::kRowId) {}
};

template <typename Store>
void Fill(Store& store, Source const& source) {
  store.RemoveFiles();
  store.Load(source.set.items, true);
}

// One read per iteration, of keys in random order.
template <typename Store, typename Read>
void RunReads(benchmark::State& state, Source const& source, std::vector<Pair> const& keys,
              Read read) {
  Store store;
  Fill(store, source);
  store.OpenForReading();
  std::size_t at = 0;
  for (auto _ : state) {
    benchmark::DoNotOptimize(read(store, keys[at]));
    if (++at == keys.size()) at = 0;
  }
  store.Close();
  store.RemoveFiles();
}

template <typename Store>
void Present(benchmark::State& state) {
  Source const& source = SourceOf(static_cast<std::size_t>(state.range(0)));
  RunReads<Store>(state, source, source.present, [](Store& s, Pair key) { return s.Get(key); });
}

template <typename Store>
void Absent(benchmark::State& state) {
  Source const& source = SourceOf(static_cast<std::size_t>(state.range(0)));
  RunReads<Store>(state, source, source.absent, [](Store& s, Pair key) { return s.Get(key); });
}

template <typename Store>
void DecodedItem(benchmark::State& state) {
  Source const& source = SourceOf(static_cast<std::size_t>(state.range(0)));
  RunReads<Store>(state, source, source.present,
                  [](Store& s, Pair key) { return s.GetDecoded(key); });
}

template <typename Store>
void Walk(benchmark::State& state) {
  Source const& source = SourceOf(static_cast<std::size_t>(state.range(0)));
  Store store;
  Fill(store, source);
  store.OpenForReading();
  for (auto _ : state) benchmark::DoNotOptimize(store.Walk());
  state.SetItemsProcessed(state.iterations() * state.range(0));
  store.Close();
  store.RemoveFiles();
}

template <typename Store, bool kAscending>
void Load(benchmark::State& state) {
  Source const& source = SourceOf(static_cast<std::size_t>(state.range(0)));
  Store store;
  for (auto _ : state) {
    state.PauseTiming();
    store.RemoveFiles();
    state.ResumeTiming();
    store.Load(kAscending ? source.set.items : source.shuffled, kAscending);
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
  store.RemoveFiles();
}

template <bool kAscending>
void LoadByWriteItem(benchmark::State& state) {
  Source const& source = SourceOf(static_cast<std::size_t>(state.range(0)));
  Zel store;
  for (auto _ : state) {
    state.PauseTiming();
    store.RemoveFiles();
    state.ResumeTiming();
    store.LoadThroughItems(kAscending ? source.set.items : source.shuffled);
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
  store.RemoveFiles();
}

template <typename Store>
void OpenReadClose(benchmark::State& state) {
  Source const& source = SourceOf(static_cast<std::size_t>(state.range(0)));
  Store store;
  Fill(store, source);
  std::size_t at = 0;
  for (auto _ : state) {
    benchmark::DoNotOptimize(store.OpenReadClose(source.present[at]));
    if (++at == source.present.size()) at = 0;
  }
  store.RemoveFiles();
}

template <auto kTrim>
void Trim(benchmark::State& state) {
  constexpr std::size_t kItems = 1000;
  std::vector<float> floats;
  for (Item const& item : SourceOf(kItems).set.items) {
    for (std::size_t i = 0; i < kFloats; ++i) {
      floats.push_back(std::bit_cast<float>(item.data[kFirstFloat + i]));
    }
  }
  std::size_t at = 0;
  for (auto _ : state) {
    benchmark::DoNotOptimize(kTrim(floats[at]));
    if (++at == floats.size()) at = 0;
  }
}

void FillIn(benchmark::State& state) {
  Components const components = SampleComponents();
  std::size_t at = 0;
  for (auto _ : state) {
    zel::CompleteComponent(*components[at]);
    benchmark::ClobberMemory();
    if (++at == components.size()) at = 0;
  }
}

void Sizes(benchmark::internal::Benchmark* cases) {
  cases->Arg(10'000)->Arg(100'000)->Arg(1'000'000);
}
void Loads(benchmark::internal::Benchmark* cases) {
  Sizes(cases);
  cases->Unit(benchmark::kMillisecond);
}

BENCHMARK_TEMPLATE(Present, Zel)->Apply(Sizes);
BENCHMARK_TEMPLATE(Present, Lmdb)->Apply(Sizes);
BENCHMARK_TEMPLATE(Present, Sqlite)->Apply(Sizes);
BENCHMARK_TEMPLATE(Present, SqliteRows)->Apply(Sizes);
BENCHMARK_TEMPLATE(Absent, Zel)->Apply(Sizes);
BENCHMARK_TEMPLATE(Absent, Lmdb)->Apply(Sizes);
BENCHMARK_TEMPLATE(Absent, Sqlite)->Apply(Sizes);
BENCHMARK_TEMPLATE(Absent, SqliteRows)->Apply(Sizes);
BENCHMARK_TEMPLATE(DecodedItem, Zel)->Apply(Sizes);
BENCHMARK_TEMPLATE(DecodedItem, Lmdb)->Apply(Sizes);
BENCHMARK_TEMPLATE(Walk, Zel)->Apply(Sizes);
BENCHMARK_TEMPLATE(Walk, Lmdb)->Apply(Sizes);
BENCHMARK_TEMPLATE(Walk, Sqlite)->Apply(Sizes);
BENCHMARK_TEMPLATE(Load, Zel, true)->Apply(Loads);
BENCHMARK_TEMPLATE(Load, Lmdb, true)->Apply(Loads);
BENCHMARK_TEMPLATE(Load, Sqlite, true)->Apply(Loads);
BENCHMARK_TEMPLATE(LoadByWriteItem, true)->Apply(Loads);
BENCHMARK_TEMPLATE(Load, Zel, false)->Apply(Loads);
BENCHMARK_TEMPLATE(Load, Lmdb, false)->Apply(Loads);
BENCHMARK_TEMPLATE(Load, Sqlite, false)->Apply(Loads);
BENCHMARK_TEMPLATE(LoadByWriteItem, false)->Apply(Loads);
BENCHMARK_TEMPLATE(OpenReadClose, Zel)->Apply(Sizes);
BENCHMARK_TEMPLATE(OpenReadClose, Lmdb)->Apply(Sizes);
BENCHMARK_TEMPLATE(OpenReadClose, Sqlite)->Apply(Sizes);
BENCHMARK_TEMPLATE(Trim, zel::Trim7);
BENCHMARK_TEMPLATE(Trim, TrimByPrintf);
BENCHMARK_TEMPLATE(Trim, TrimByChars);
BENCHMARK(FillIn);

}  // namespace

BENCHMARK_MAIN();
