#include "formats/igraph_files.h"

#include <igraph/igraph.h>

#include <array>
#include <cstdio>
#include <string>

#include "base/open_file.h"
#include "study/names.h"

namespace {

// What igraph said last; its handler takes no argument of ours.
thread_local std::string last_error;

void keep_error(const char* reason, const char*, int, igraph_error_t) {
    last_error = reason != nullptr ? reason : "an error without a word";
    IGRAPH_FINALLY_FREE();
}
void drop_warning(const char*, const char*, int) {}

// Holds igraph's handlers while it lives: an error comes back as a value and ends nothing.
class IgraphHandlers {
  public:
    IgraphHandlers()
        : error_(igraph_set_error_handler(keep_error)),
          warning_(igraph_set_warning_handler(drop_warning)),
          attributes_(igraph_set_attribute_table(&igraph_cattribute_table)) {
        last_error.clear();
    }
    ~IgraphHandlers() {
        igraph_set_error_handler(error_);
        igraph_set_warning_handler(warning_);
        igraph_set_attribute_table(attributes_);
    }
    IgraphHandlers(const IgraphHandlers&) = delete;
    IgraphHandlers& operator=(const IgraphHandlers&) = delete;

  private:
    igraph_error_handler_t* error_;
    igraph_warning_handler_t* warning_;
    igraph_attribute_table_t* attributes_;
};

// The first network of a Pajek file: from its "*Vertices" to the next object.
std::string first_pajek_network(const TextFile& file, int& lines_before,
                                std::vector<std::string>& notes) {
    constexpr std::array<const char*, 7> kObjects = {
        "*network", "*partition", "*vector", "*cluster", "*permutation", "*hierarchy", "*vertices"};
    const auto starts = [&](std::size_t at, std::string_view word) {
        return names_match(std::string_view(file.text).substr(at, word.size()), word);
    };
    std::size_t begin = std::string::npos;
    int line = 0;
    for (std::size_t at = 0; at < file.text.size();) {
        if (begin == std::string::npos && starts(at, "*vertices")) {
            begin = at;
            lines_before = line;
        } else if (begin != std::string::npos) {
            for (const char* object : kObjects) {
                if (starts(at, object)) {
                    notes.emplace_back("the first network of the file was read, nothing behind it");
                    return file.text.substr(begin, at - begin);
                }
            }
        }
        const std::size_t end = file.text.find('\n', at);
        at = end == std::string::npos ? file.text.size() : end + 1;
        ++line;
    }
    return begin == std::string::npos ? file.text : file.text.substr(begin);
}

igraph_error_t parse(igraph_t& graph, std::FILE* stream, NetworkFormat format) {
    switch (format) {
        case NetworkFormat::pajek:
            return igraph_read_graph_pajek(&graph, stream);
        case NetworkFormat::graphml:
            return igraph_read_graph_graphml(&graph, stream, 0);
        default:
            return igraph_read_graph_gml(&graph, stream);
    }
}

// The number behind "line " in what a parser said, or 0.
int line_in(const std::string& reason) {
    const std::size_t at = reason.find("line ");
    int line = 0;
    for (std::size_t k = at == std::string::npos ? reason.size() : at + 5; k < reason.size(); ++k) {
        if (reason[k] < '0' || reason[k] > '9' || line > 100000000) {
            break;
        }
        line = 10 * line + (reason[k] - '0');
    }
    return line;
}

void add_parse_problem(const TextFile& file, NetworkFormat format, int lines_before,
                       Problems& problems) {
    const int line = line_in(last_error);
    problems.push_back(
        {.file = file.path,
         .line = line > 0 ? line + lines_before : 0,
         .found = "what cannot be read (" + last_error + ")",
         .expected = std::string("a network in the format `") + network_format_name(format) + "`",
         .mend = "mend the line, or say under [network] what the file is: format = \"...\"; "
                 "`ovri new FILE --format FORMAT` writes a model file that does"});
}

std::string attribute_text(const igraph_t& graph, const char* name, bool numeric, int actor) {
    if (numeric) {
        const double value = igraph_cattribute_VAN(&graph, name, actor);
        return value == value ? number_text(value) : "";
    }
    const char* text = igraph_cattribute_VAS(&graph, name, actor);
    return text != nullptr ? text : "";
}

// Fills the names with those of an attribute. False when the graph has it not, or when it names two
// actors alike or one not at all.
bool take_names(const igraph_t& graph, const char* name, NameTable& actors) {
    if (!igraph_cattribute_has_attr(&graph, IGRAPH_ATTRIBUTE_VERTEX, name)) {
        return false;
    }
    igraph_attribute_type_t type = IGRAPH_ATTRIBUTE_UNSPECIFIED;
    igraph_cattribute_table.gettype(&graph, &type, IGRAPH_ATTRIBUTE_VERTEX, name);
    if (type != IGRAPH_ATTRIBUTE_STRING && type != IGRAPH_ATTRIBUTE_NUMERIC) {
        return false;
    }
    NameTable names;
    const auto count = static_cast<int>(igraph_vcount(&graph));
    for (int actor = 0; actor < count; ++actor) {
        const std::string text =
            attribute_text(graph, name, type == IGRAPH_ATTRIBUTE_NUMERIC, actor);
        if (text.empty() || names.add(text) != actor) {
            return false;
        }
    }
    actors = std::move(names);
    return true;
}

void read_names(const igraph_t& graph, TieTable& table) {
    for (const char* name : {"name", "label", "Label", "id"}) {
        if (take_names(graph, name, table.actors)) {
            return;
        }
    }
    table.named = false;
    for (int actor = 0; actor < static_cast<int>(igraph_vcount(&graph)); ++actor) {
        table.actors.add(std::to_string(actor + 1));
    }
}

// A list of texts that igraph makes and takes back.
class TextList {
  public:
    TextList() { igraph_strvector_init(&texts_, 0); }
    ~TextList() { igraph_strvector_destroy(&texts_); }
    TextList(const TextList&) = delete;
    TextList& operator=(const TextList&) = delete;
    igraph_strvector_t* get() { return &texts_; }
    int size() const { return static_cast<int>(igraph_strvector_size(&texts_)); }
    std::string operator[](int k) const { return igraph_strvector_get(&texts_, k); }

  private:
    igraph_strvector_t texts_;
};

std::vector<std::string> vertex_attributes(const igraph_t& graph) {
    TextList of_graph;
    TextList of_vertices;
    TextList of_ties;
    igraph_vector_int_t types;
    igraph_vector_int_init(&types, 0);
    igraph_cattribute_list(&graph, of_graph.get(), &types, of_vertices.get(), &types, of_ties.get(),
                           &types);
    igraph_vector_int_destroy(&types);
    std::vector<std::string> names;
    names.reserve(static_cast<std::size_t>(of_vertices.size()));
    for (int k = 0; k < of_vertices.size(); ++k) {
        names.push_back(of_vertices[k]);
    }
    return names;
}

std::string value_text(const igraph_t& graph, const std::string& name, igraph_attribute_type_t type,
                       int actor) {
    if (type == IGRAPH_ATTRIBUTE_BOOLEAN) {
        return igraph_cattribute_VAB(&graph, name.c_str(), actor) ? "true" : "false";
    }
    return attribute_text(graph, name.c_str(), type == IGRAPH_ATTRIBUTE_NUMERIC, actor);
}

// The actors' attributes but for their names; of a Pajek file there are only places in a drawing.
void read_columns_of(const igraph_t& graph, TieTable& table) {
    for (const std::string& name : vertex_attributes(graph)) {
        igraph_attribute_type_t type = IGRAPH_ATTRIBUTE_UNSPECIFIED;
        igraph_cattribute_table.gettype(&graph, &type, IGRAPH_ATTRIBUTE_VERTEX, name.c_str());
        if (name == "id" || name == "name" || name == "label" || name == "Label") {
            continue;
        }
        if (type != IGRAPH_ATTRIBUTE_NUMERIC && type != IGRAPH_ATTRIBUTE_STRING &&
            type != IGRAPH_ATTRIBUTE_BOOLEAN) {
            table.notes.push_back("the attribute `" + name +
                                  "` was not read: it is no text, "
                                  "number or truth value");
            continue;
        }
        ActorColumn column{name, {}};
        for (int actor = 0; actor < table.actors.size(); ++actor) {
            column.values.push_back(value_text(graph, name, type, actor));
        }
        table.columns.push_back(std::move(column));
    }
}

bool has_weights(const igraph_t& graph) {
    igraph_attribute_type_t type = IGRAPH_ATTRIBUTE_UNSPECIFIED;
    if (igraph_cattribute_has_attr(&graph, IGRAPH_ATTRIBUTE_EDGE, "weight")) {
        igraph_cattribute_table.gettype(&graph, &type, IGRAPH_ATTRIBUTE_EDGE, "weight");
    }
    return type == IGRAPH_ATTRIBUTE_NUMERIC;
}

void refuse_weight(const TextFile& file, double weight, Problems& problems) {
    problems.push_back({.file = file.path,
                        .field = "weights",
                        .found = "a tie with the weight " + number_text(weight),
                        .expected = "ties that are there or not",
                        .mend = "write `threshold = 1` under [network], or add --threshold 1: "
                                "weights of at least that are ties"});
}

void read_graph_ties(const TextFile& file, const igraph_t& graph, std::optional<double> threshold,
                     TieTable& table, Problems& problems) {
    const bool weighted = has_weights(graph);
    const igraph_integer_t count = igraph_ecount(&graph);
    for (igraph_integer_t tie = 0; tie < count; ++tie) {
        const double weight = weighted ? igraph_cattribute_EAN(&graph, "weight", tie) : 1.0;
        if (weighted && !threshold && weight != 1.0) {
            refuse_weight(file, weight, problems);
            return;
        }
        table.ties.push_back({static_cast<int>(IGRAPH_FROM(&graph, tie)),
                              static_cast<int>(IGRAPH_TO(&graph, tie)), 0,
                              !threshold || weight >= *threshold});
    }
}

void read_graph(const TextFile& file, const igraph_t& graph, NetworkFormat format,
                std::optional<double> threshold, TieTable& table, Problems& problems) {
    if (igraph_vcount(&graph) > kMostActors) {
        problems.push_back({.file = file.path,
                            .field = "actors",
                            .found = std::to_string(igraph_vcount(&graph)),
                            .expected = "at most " + std::to_string(kMostActors),
                            .mend = "give a smaller network"});
        return;
    }
    table.directed = igraph_is_directed(&graph);
    read_names(graph, table);
    if (format != NetworkFormat::pajek) {
        read_columns_of(graph, table);
    }
    read_graph_ties(file, graph, threshold, table, problems);
}

}  // namespace

bool has_igraph() { return true; }

void read_igraph_file(const TextFile& file, NetworkFormat format, std::optional<double> threshold,
                      TieTable& table, Problems& problems) {
    int lines_before = 0;
    std::string text = format == NetworkFormat::pajek
                           ? first_pajek_network(file, lines_before, table.notes)
                           : file.text;
    text.push_back('\n');
    const FileHandle stream(::fmemopen(text.data(), text.size(), "r"));
    if (stream == nullptr) {
        problems.push_back({.file = file.path,
                            .found = "a file that could not be read",
                            .expected = "memory for it",
                            .mend = "give a smaller network"});
        return;
    }
    const IgraphHandlers handlers;
    igraph_t graph;
    if (parse(graph, stream.get(), format) != IGRAPH_SUCCESS) {
        add_parse_problem(file, format, lines_before, problems);
        return;
    }
    read_graph(file, graph, format, threshold, table, problems);
    igraph_destroy(&graph);
}
