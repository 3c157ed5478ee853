// Actor attributes and dyadic covariates of one run, and their files.
#pragma once

#include <cstdio>
#include <string>
#include <vector>

#include "effects/effect.h"

// One continuous attribute with its three pair tables: sum, absolute difference and product of the
// values of each ordered pair, in single precision, 0.0 where either is missing (9999.0).
struct ContinuousAttribute {
    std::vector<float> values;
    FloatTable sums;
    FloatTable differences;
    FloatTable products;
};

struct AttributeTable {
    int actors = 0;
    std::vector<CodedAttribute> binary;
    std::vector<ContinuousAttribute> continuous;
    std::vector<CodedAttribute> categorical;
    std::vector<FloatTable> covariates;
    std::vector<std::string> binary_names;
    std::vector<std::string> continuous_names;
    std::vector<std::string> categorical_names;
    std::vector<std::string> covariate_names;
};

// Reads `count` attributes: a line of names, each ended by a comma or the line's end, then one row
// of values per actor. Each name is echoed with a tab. Cells that cannot be read stay 0.
void attribute_read_binary(AttributeTable& table, int actors, int count, const std::string& path,
                           std::FILE* console);
void attribute_read_continuous(AttributeTable& table, int actors, int count,
                               const std::string& path, std::FILE* console);
void attribute_read_categorical(AttributeTable& table, int actors, int count,
                                const std::string& path, std::FILE* console);

// Reads `count` covariates: for each a line with its name, then actors x actors values. Each name
// is echoed on a line.
void read_covariates(AttributeTable& table, int actors, int count, const std::string& path,
                     std::FILE* console);

// An attribute from its values, prepared for counting.
CodedAttribute coded_attribute(std::vector<int> values);
ContinuousAttribute continuous_attribute(std::vector<float> values);
