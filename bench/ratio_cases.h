// The comparisons, and the project's own limits.
//
// The limits against SQLite apply to the table with the same two-word key as the library. The table
// with both numbers in one rowid is SQLite at its best; it is shown without a limit.
#pragma once

#include <cstddef>
#include <filesystem>

#include "bench/ratio.h"

namespace zel::bench {

// Each makes its files in `folder` and removes them.
//
// Reads of present and absent keys in random order, through the located bank and through ReadItem,
// and the ordered walk: one set of stores, all open.
void CompareReads(RatioTable& table, std::filesystem::path const& folder, std::size_t items);
// From no file to a closed one, in key order and in random order.
void CompareLoads(RatioTable& table, std::filesystem::path const& folder, std::size_t items);
// A tenth of the items, all from leaves, in random order; from closed to closed.
void CompareDeletes(RatioTable& table, std::filesystem::path const& folder, std::size_t items);
// What a host calls: reads and walks, loads, and deletes of a random tenth, through LibMaint, Key
// and a bank.
void ComparePublicReads(RatioTable& table, std::filesystem::path const& folder, std::size_t items);
void ComparePublicChanges(RatioTable& table, std::filesystem::path const& folder,
                          std::size_t items);
void ComparePublicDeletes(RatioTable& table, std::filesystem::path const& folder,
                          std::size_t items);
// ReadItem over many banks in turn.
void CompareManyBanks(RatioTable& table, std::filesystem::path const& folder);
// How times and sizes grow from 10^4 to 10^7 items, or for `items` alone if not 0: ReadItem,
// WriteItem in both orders, and bytes on disk. Takes long.
void CompareGrowth(RatioTable& table, std::filesystem::path const& folder, std::size_t items);
// Open, one read, close.
void CompareOpens(RatioTable& table, std::filesystem::path const& folder, std::size_t items);
// Floats to doubles with their decimal digits.
void CompareTrims(RatioTable& table);
// Evaluation, the read of a full component and the search over three libraries.
void CompareComponents(RatioTable& table, std::filesystem::path const& folder);
// Batches beside numpy and beside calls, and single calls over all published correlations.
void CompareEvaluations(RatioTable& table, std::filesystem::path const& folder);
// The constants that are derived from a component's other constants and correlations.
void CompareFillIns(RatioTable& table);
// A document of pairs read into a library: time, and the largest memory of a process.
void CompareImports(RatioTable& table, std::filesystem::path const& folder);
// A bank of pairs written as a document.
void CompareExports(RatioTable& table, std::filesystem::path const& folder);
// The start of the command-line host, and its output of one component.
void CompareHost(RatioTable& table, std::filesystem::path const& folder);
// A pick list built and read.
void CompareLists(RatioTable& table, std::filesystem::path const& folder);

}  // namespace zel::bench
