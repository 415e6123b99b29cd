#pragma once

/// Takes memory from the system in large pages and keeps what is freed: most of a run's memory is taken once, and page
/// by page it would cost a good part of the run's time. Only for a process that ends with its work.
void TakeMemoryInLargePages();
