// What the machine has to offer a run.
#pragma once

// Its physical memory in bytes; infinite where that cannot be told.
double physical_memory();
