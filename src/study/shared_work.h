// Work in numbered pieces that threads share.
#pragma once

#include <functional>

// How many threads carry out so many pieces: those that are wanted (0 or less: as many as the
// machine has), at least one, never more than there are pieces.
int threads_for(int wanted, int pieces);

// Calls work(thread, number) once for each number from 0 to pieces - 1, whichever is next, in
// `threads` threads, the caller's among them; `thread` counts from 0. Where the machine gives no
// more threads, those there are do the work. After a failure nothing more is begun; when all
// threads have ended, what was thrown at the lowest number is thrown here.
void share_work(int pieces, int threads, const std::function<void(int thread, int number)>& work);
