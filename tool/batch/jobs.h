// The runs of a plan, by number: from 1 on, seeds first, then models, then networks. The last job
// of four networks, two models and three seeds is 24.
//
// Jobs are made when they are asked for, so that millions of them take no memory.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "formats/plan_file.h"

struct Job {
    int number = 1;
    std::size_t network = 0;  // their places in the plan
    std::size_t model = 0;
    std::uint32_t seed = 0;
};

int job_count(const Plan& plan);
Job job_at(const Plan& plan, int number);

// "0001": as many digits as the last job's number has, at least four. The name of its folder.
std::string job_name(const Plan& plan, int number);

// Jobs of the same network and model differ in nothing but their seeds.
int pair_count(const Plan& plan);
int pair_of(const Plan& plan, const Job& job);

// What `ovri estimate` would be given for the job. It takes one thread where nothing else is said:
// the cores are the workers'.
ModelFile job_model(const Plan& plan, const Job& job);
