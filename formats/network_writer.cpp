#include "formats/network_writer.h"

#include <algorithm>
#include <set>

#include "formats/csv.h"

namespace {

const std::string& name_of(const StudyNetwork& network, int actor) {
    return network.actors[static_cast<std::size_t>(actor)];
}

std::string edge_list_text(const StudyNetwork& network, char delimiter) {
    std::string text = std::string("from") + delimiter + "to\n";
    for (const ActorTie& tie : network.ties) {
        text += csv_field(name_of(network, tie.from)) + delimiter +
                csv_field(name_of(network, tie.to)) + "\n";
    }
    return text;
}

// The cells of each row as '0' and '1'.
std::vector<std::string> matrix_rows(const StudyNetwork& network) {
    const std::size_t n = network.actors.size();
    std::vector<std::string> rows(n, std::string(n, '0'));
    for (const ActorTie& tie : network.ties) {
        const auto from = static_cast<std::size_t>(tie.from);
        const auto to = static_cast<std::size_t>(tie.to);
        rows[from][to] = '1';
        if (!network.directed) {
            rows[to][from] = '1';
        }
    }
    return rows;
}

std::string joined(const std::string& cells, char delimiter) {
    std::string text;
    for (const char cell : cells) {
        if (!text.empty()) {
            text += delimiter;
        }
        text += cell;
    }
    return text;
}

std::string matrix_text(const StudyNetwork& network) {
    std::string text;
    for (const std::string& actor : network.actors) {
        text += "," + csv_field(actor);
    }
    text += "\n";
    const std::vector<std::string> rows = matrix_rows(network);
    for (std::size_t i = 0; i < rows.size(); ++i) {
        text += csv_field(network.actors[i]) + "," + joined(rows[i], ',') + "\n";
    }
    return text;
}

// A name as it can stand between quotation marks where there is no escape.
std::string plain_name(std::string name) {
    for (char& each : name) {
        each = each == '"' ? '\'' : each == '\n' || each == '\r' ? ' ' : each;
    }
    return name;
}

bool writes_plain_names(NetworkFormat format) {
    return format == NetworkFormat::pajek || format == NetworkFormat::dl;
}

std::string in_quotes(const std::string& name) { return "\"" + plain_name(name) + "\""; }

std::string numbered_ties(const StudyNetwork& network) {
    std::string text;
    for (const ActorTie& tie : network.ties) {
        text += std::to_string(tie.from + 1) + " " + std::to_string(tie.to + 1) + "\n";
    }
    return text;
}

std::string pajek_text(const StudyNetwork& network) {
    std::string text = "*Vertices " + std::to_string(network.actors.size()) + "\n";
    for (std::size_t k = 0; k < network.actors.size(); ++k) {
        text += std::to_string(k + 1) + " " + in_quotes(network.actors[k]) + "\n";
    }
    return text + (network.directed ? "*Arcs\n" : "*Edges\n") + numbered_ties(network);
}

std::string dl_text(const StudyNetwork& network) {
    std::string text = "DL n=" + std::to_string(network.actors.size()) + "\nformat = fullmatrix\n";
    std::string labels;
    for (const std::string& actor : network.actors) {
        labels += (labels.empty() ? "" : ",") + in_quotes(actor);
    }
    text += "labels:\n" + labels + "\ndata:\n";
    for (const std::string& row : matrix_rows(network)) {
        text += joined(row, ' ') + "\n";
    }
    return text;
}

// With the characters that markup claims as entities.
std::string in_markup(const std::string& name) {
    std::string text;
    for (const char each : name) {
        switch (each) {
            case '&':
                text += "&amp;";
                break;
            case '<':
                text += "&lt;";
                break;
            case '>':
                text += "&gt;";
                break;
            case '"':
                text += "&quot;";
                break;
            default:
                text += each;
        }
    }
    return text;
}

std::string graphml_text(const StudyNetwork& network) {
    std::string text =
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
        "<graphml xmlns=\"http://graphml.graphdrawing.org/xmlns\">\n"
        "  <key id=\"name\" for=\"node\" attr.name=\"name\" attr.type=\"string\"/>\n"
        "  <graph id=\"G\" edgedefault=\"";
    text += network.directed ? "directed\">\n" : "undirected\">\n";
    for (std::size_t k = 0; k < network.actors.size(); ++k) {
        text += "    <node id=\"n" + std::to_string(k) + "\"><data key=\"name\">" +
                in_markup(network.actors[k]) + "</data></node>\n";
    }
    for (const ActorTie& tie : network.ties) {
        text += "    <edge source=\"n" + std::to_string(tie.from) + "\" target=\"n" +
                std::to_string(tie.to) + "\"/>\n";
    }
    return text + "  </graph>\n</graphml>\n";
}

std::string gml_text(const StudyNetwork& network) {
    std::string text = "graph [\n  directed ";
    text += network.directed ? "1\n" : "0\n";
    for (std::size_t k = 0; k < network.actors.size(); ++k) {
        text += "  node [ id " + std::to_string(k) + " label \"" + in_markup(network.actors[k]) +
                "\" ]\n";
    }
    for (const ActorTie& tie : network.ties) {
        text += "  edge [ source " + std::to_string(tie.from) + " target " +
                std::to_string(tie.to) + " ]\n";
    }
    return text + "]\n";
}

std::string dot_name(const std::string& name) {
    std::string text = "\"";
    for (const char each : name) {
        text += each == '"' || each == '\\' ? "\\" : "";
        text += each;
    }
    return text + "\"";
}

std::string dot_text(const StudyNetwork& network) {
    std::string text = network.directed ? "digraph {\n" : "graph {\n";
    for (const std::string& actor : network.actors) {
        text += "  " + dot_name(actor) + ";\n";
    }
    for (const ActorTie& tie : network.ties) {
        text += "  " + dot_name(name_of(network, tie.from)) + (network.directed ? " -> " : " -- ") +
                dot_name(name_of(network, tie.to)) + ";\n";
    }
    return text + "}\n";
}

}  // namespace

std::string network_text(const StudyNetwork& network, NetworkFormat format, char delimiter) {
    switch (format) {
        case NetworkFormat::edge_list:
            return edge_list_text(network, delimiter);
        case NetworkFormat::matrix:
            return matrix_text(network);
        case NetworkFormat::pajek:
            return pajek_text(network);
        case NetworkFormat::graphml:
            return graphml_text(network);
        case NetworkFormat::gml:
            return gml_text(network);
        case NetworkFormat::dl:
            return dl_text(network);
        case NetworkFormat::dot:
            break;
    }
    return dot_text(network);
}

std::vector<std::string> changed_names(const StudyNetwork& network, NetworkFormat format) {
    std::vector<std::string> names;
    for (const std::string& actor : network.actors) {
        if (writes_plain_names(format) && plain_name(actor) != actor) {
            names.push_back(actor);
        }
    }
    return names;
}

std::string clashing_name(const StudyNetwork& network, NetworkFormat format) {
    std::set<std::string> written;
    for (const std::string& actor : network.actors) {
        if (writes_plain_names(format) && !written.insert(plain_name(actor)).second) {
            return actor;
        }
    }
    return "";
}

std::string nodes_text(const ActorList& actors, const std::vector<ActorColumn>& columns) {
    std::string text = "actor";
    for (const ActorColumn& column : columns) {
        text += "," + csv_field(column.name);
    }
    for (std::size_t actor = 0; actor < actors.size(); ++actor) {
        text += "\n" + csv_field(actors[actor]);
        for (const ActorColumn& column : columns) {
            const std::string& value = column.values[actor];
            text += "," + (value.empty() ? value : csv_field(value));
        }
    }
    return text + "\n";
}
