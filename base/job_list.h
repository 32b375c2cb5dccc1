// SPDX-License-Identifier: MIT
#pragma once

#include <list>
#include <utility>

#include "base/require.h"

namespace corvane {

/// Jobs that wait, first in, first out. A place that was left is used again: adding allocates only
/// when more jobs wait than ever before. One thread at a time.
template <class Job>
class JobList {
 public:
  bool empty() const { return jobs.empty(); }

  void add(Job job) {
    if (spare.empty()) spare.emplace_front();
    spare.front() = std::move(job);
    jobs.splice(jobs.end(), spare, spare.begin());
  }

  /// The oldest of them, which leaves. There must be one.
  Job take() {
    require(!jobs.empty(), "a job that is taken waits");
    Job job = std::move(jobs.front());
    spare.splice(spare.begin(), jobs, jobs.begin());
    return job;
  }

 private:
  std::list<Job> jobs;
  std::list<Job> spare;
};

}  // namespace corvane
