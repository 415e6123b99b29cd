#pragma once

/// Takes memory from the system in large pages and keeps what is freed: most of a run's memory is taken once, and page
/// by page it would cost a good part of the run's time. Only for a process that ends with its work.
void TakeMemoryInLargePages();

/// Ends the program with a message and status 3 where memory runs out while something is being taken away, which leaves
/// nobody to tell: a JSON value, for one, needs some for going.
void EndWhereMemoryRunsOut();
