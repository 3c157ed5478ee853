#include "report/update_files.h"

#include "base/text_writer.h"

namespace {

void write_structural(TextWriter out, const EffectSelection& selection) {
    const Catalogue& catalogue = *selection.catalogue;
    for (const int id : catalogue.update_order) {
        out.print("%s\n%.5f\n", catalogue.effects[static_cast<std::size_t>(id)].row,
                  selection.structural[static_cast<std::size_t>(id)].value);
    }
}

void write_group(TextWriter out, const EffectSelection& selection, AttributeGroup group) {
    const AttributeGroupCatalogue& rows = group_catalogue(*selection.catalogue, group);
    const AttributeSelection& chosen = group_of(selection, group);
    const std::vector<std::string>& names = attribute_names(selection, group);
    for (std::size_t attribute = 0; attribute < names.size(); ++attribute) {
        for (const int row : rows.setup_order) {
            const auto index = static_cast<std::size_t>(row);
            out.text(text_with_name(rows.effects[index].update, names[attribute]));
            out.print("\n%.5f\n", chosen.choices[index][attribute].value);
        }
    }
}

}  // namespace

void write_update_files(const EffectSelection& selection, const OutputPaths& paths) {
    const bool directed = selection.catalogue->kind == NetworkKind::directed;
    {
        TextWriter out = writer_replace(paths.structural_update);
        if (directed || selection.structural_flag == 1) {
            write_structural(std::move(out), selection);
        }
    }
    for (const AttributeGroup group : kAllGroups) {
        TextWriter out = writer_replace(update_path(paths, group));
        if (directed || group_of(selection, group).flag == 1) {
            write_group(std::move(out), selection, group);
        }
    }
}
