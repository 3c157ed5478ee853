#include "formats/host_text.h"

#include <array>
#include <charconv>

#include "base/text_writer.h"
#include "formats/text_file.h"

std::string path_stem(const std::string& path) {
    const std::string extension = path_extension(path);
    return extension.empty() ? path : path.substr(0, path.size() - extension.size() - 1);
}

std::string name_stem(const std::string& path) {
    const std::string stem = path_stem(path);
    const std::size_t slash = stem.find_last_of("/\\");
    return slash == std::string::npos ? stem : stem.substr(slash + 1);
}

double decimal_of(float value) {
    std::array<char, 64> text{};
    const auto end = std::to_chars(text.data(), text.data() + text.size(), value);
    double decimal = static_cast<double>(value);
    std::from_chars(text.data(), end.ptr, decimal);
    return decimal;
}

std::string row_label(const EffectSelection& selection, AttributeGroup group, int row,
                      int attribute) {
    const std::vector<std::string>& names = attribute_names(selection, group);
    const auto number = static_cast<std::size_t>(attribute);
    return text_with_name(
        group_catalogue(*selection.catalogue, group).effects[static_cast<std::size_t>(row)].update,
        number < names.size() ? names[number] : "");
}

double customary_lambda(const Catalogue& catalogue, int id) {
    for (const int first : catalogue.setup_order) {
        if (first != id && second_effect(catalogue, first) == id) {
            return 1.0;
        }
    }
    return 2.0;
}
