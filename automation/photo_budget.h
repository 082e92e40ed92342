#pragma once

#include <algorithm>
#include <cstdint>
#include <string>

#include "automation/memory_budget.h"
#include "imaging/load_photo.h"
#include "imaging/photo_size.h"
#include "platform/files.h"
#include "platform/system.h"

namespace tarnwell {

// The memory that photos corrected side by side may take: half of the machine's, so that the system
// and its file cache keep the other half.
inline std::uint64_t BudgetOfThisMachine() { return SystemMemoryBytes() / 2; }

// The photo at `path`, corrected with these settings, as a task of the budget. What cannot be read
// fails early, and takes nothing worth counting.
inline std::uint64_t MemoryForPhoto(Files& files, const frmModules& panel,
                                    const std::string& path) {
  const Result<std::string> bytes = files.Read(path, MostPhotoBytes());
  return MemoryToCorrect(bytes.ok() ? *bytes : std::string_view(), panel);
}

// The threads one of the photos may use when as many as fit are corrected side by side.
inline int ThreadsPerPhoto(const MemoryBudget& budget, std::uint64_t bytes, int threads,
                           int workers) {
  return std::max(1, threads / std::min(workers, budget.Fitting(bytes)));
}

}  // namespace tarnwell
