#include "effects/attribute_table.h"

#include <cmath>
#include <utility>

#include "base/text_reader.h"
#include "base/text_writer.h"

namespace {

std::size_t size_of(int count) { return static_cast<std::size_t>(count > 0 ? count : 0); }

// One name, up to a comma, the line's end or the file's end; kept as it stands.
std::string read_name(TextReader& reader) {
    std::string name;
    int character = reader_character(reader);
    while (character >= 0 && character != ',' && character != '\n') {
        name.push_back(static_cast<char>(character));
        character = reader_character(reader);
    }
    return name;
}

std::vector<std::string> read_names(TextReader& reader, int count, std::FILE* console) {
    TextWriter echo(console);
    std::vector<std::string> names(size_of(count));
    for (std::string& name : names) {
        name = read_name(reader);
        echo.text(name + "\t");
    }
    return names;
}

// The values of a file, one list per attribute.
template <class Value, class Read>
std::vector<std::vector<Value>> read_values(TextReader& reader, int actors, int count, Read read) {
    std::vector<std::vector<Value>> columns(size_of(count),
                                            std::vector<Value>(size_of(actors), Value()));
    ReadSequence cells(reader);
    for (int actor = 0; actor < actors; ++actor) {
        for (auto& column : columns) {
            cells.next<Value>(read, column[static_cast<std::size_t>(actor)]);
        }
    }
    return columns;
}

std::vector<CodedAttribute> read_coded(TextReader& reader, int actors, int count) {
    std::vector<CodedAttribute> attributes;
    for (auto& column : read_values<int>(reader, actors, count, reader_int)) {
        attributes.push_back(coded_attribute(std::move(column)));
    }
    return attributes;
}

}  // namespace

CodedAttribute coded_attribute(std::vector<int> values) {
    const int actors = static_cast<int>(values.size());
    CodedAttribute attribute{std::move(values), ActorSet(actors), ActorSet(actors)};
    for (int actor = 0; actor < actors; ++actor) {
        const int value = attribute.values[static_cast<std::size_t>(actor)];
        if (value == 1) {
            row_flip(attribute.ones.row(), actor);
        }
        if (value != 0) {
            row_flip(attribute.nonzero.row(), actor);
        }
    }
    return attribute;
}

ContinuousAttribute continuous_attribute(std::vector<float> values) {
    const int actors = static_cast<int>(values.size());
    ContinuousAttribute attribute{std::move(values), FloatTable(actors, actors),
                                  FloatTable(actors, actors), FloatTable(actors, actors)};
    for (int i = 0; i < actors; ++i) {
        for (int j = 0; j < actors; ++j) {
            const float a = attribute.values[static_cast<std::size_t>(i)];
            const float b = attribute.values[static_cast<std::size_t>(j)];
            if (a != kMissing && b != kMissing) {
                attribute.sums[i][j] = a + b;
                attribute.differences[i][j] = std::fabs(a - b);
                attribute.products[i][j] = a * b;
            }
        }
    }
    return attribute;
}

void attribute_read_binary(AttributeTable& table, int actors, int count, const std::string& path,
                           std::FILE* console) {
    TextReader reader = reader_open(path);
    table.binary_names = read_names(reader, count, console);
    table.binary = read_coded(reader, actors, count);
}

void attribute_read_continuous(AttributeTable& table, int actors, int count,
                               const std::string& path, std::FILE* console) {
    TextReader reader = reader_open(path);
    table.continuous_names = read_names(reader, count, console);
    table.continuous.clear();
    for (auto& column : read_values<float>(reader, actors, count, reader_float)) {
        table.continuous.push_back(continuous_attribute(std::move(column)));
    }
}

void attribute_read_categorical(AttributeTable& table, int actors, int count,
                                const std::string& path, std::FILE* console) {
    TextReader reader = reader_open(path);
    table.categorical_names = read_names(reader, count, console);
    table.categorical = read_coded(reader, actors, count);
}

void read_covariates(AttributeTable& table, int actors, int count, const std::string& path,
                     std::FILE* console) {
    TextReader reader = reader_open(path);
    TextWriter echo(console);
    table.covariate_names.clear();
    table.covariates.clear();
    for (int covariate = 0; covariate < count; ++covariate) {
        // The name keeps what it holds; only its own line feed goes.
        std::string name;
        int character = reader_character(reader);
        while (character >= 0 && character != '\n') {
            name.push_back(static_cast<char>(character));
            character = reader_character(reader);
        }
        echo.text(name + "\n");
        FloatTable values(actors, actors);
        ReadSequence cells(reader);
        for (int i = 0; i < actors; ++i) {
            for (int j = 0; j < actors; ++j) {
                cells.next(reader_float, values[i][j]);
            }
        }
        table.covariate_names.push_back(std::move(name));
        table.covariates.push_back(std::move(values));
    }
}
