// What the machine has.
#pragma once

// Bytes of memory that this process may come to hold: the machine's, or less where a limit is set
// on the process or on its group. 0 where nothing is known.
double machine_memory();
