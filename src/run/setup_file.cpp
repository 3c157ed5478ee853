#include "run/setup_file.h"

#include <stdexcept>

#include "base/text_reader.h"
#include "base/text_writer.h"

namespace {

class SetupReader {
  public:
    SetupReader(const std::string& path, SetupTrace* trace)
        : reader_(reader_open(path)), trace_(trace) {
        if (reader_.opened()) {
            std::fseek(reader_.file.get(), 0, SEEK_END);
            size_ = std::ftell(reader_.file.get());
            std::rewind(reader_.file.get());
        }
    }

    bool opened() const { return reader_.opened(); }

    void label() {
        pending_ = SetupItem();
        if (trace_ != nullptr) {
            reader_skip_space(reader_);
            pending_.label_offset = reader_offset(reader_);
        }
        pending_.label = reader_label(reader_);
    }

    bool integer(const std::string& field, int& target) {
        return item(field, SetupItem::Kind::integer, [&] { return reader_int(reader_, target); });
    }
    bool single(const std::string& field, float& target) {
        return item(field, SetupItem::Kind::real, [&] { return reader_float(reader_, target); });
    }
    bool real(const std::string& field, double& target) {
        return item(field, SetupItem::Kind::real, [&] { return reader_double(reader_, target); });
    }
    void line(const std::string& field, std::string& target) {
        item(field, SetupItem::Kind::text, [&] {
            target = reader_line(reader_);
            return !target.empty();
        });
    }

    // A count that no file of this size can follow up is not worth trying to make room for.
    void check_count(int count) const {
        if (count > 0 && count > size_) {
            throw std::length_error("attribute count larger than the setup file");
        }
    }

    void finish() {
        if (trace_ != nullptr) {
            trace_->end_offset = reader_offset(reader_);
            trace_->trailing_text = !reader_at_end(reader_);
        }
    }

  private:
    template <class Read>
    bool item(const std::string& field, SetupItem::Kind kind, Read read) {
        SetupItem item = std::move(pending_);
        pending_ = SetupItem();
        if (trace_ != nullptr) {
            item.field = field;
            item.kind = kind;
            if (kind != SetupItem::Kind::text) {
                reader_skip_space(reader_);
            }
            item.value_offset = reader_offset(reader_);
        }
        item.read = read();
        const bool done = item.read;
        if (trace_ != nullptr) {
            trace_->items.push_back(std::move(item));
        }
        return done;
    }

    TextReader reader_;
    SetupTrace* trace_;
    SetupItem pending_;
    long size_ = 0;
};

void read_head(SetupReader& reader, RunSettings& settings) {
    reader.label();
    reader.line("network name", settings.network_name);
    reader.label();
    reader.line("output directory", settings.output_directory);
    reader.label();
    reader.integer("proposal kind", settings.proposal_kind);
    reader.label();
    if (reader.integer("run mode", settings.run_mode)) {
        reader.integer("network kind", settings.network_kind);
    }
}

void read_cap(SetupReader& reader, RunSettings& settings) {
    int flag = 0;
    reader.label();
    reader.integer("degree cap flag", flag);
    if (flag == 1) {
        reader.integer("degree cap", settings.max_degree);
    }
}

void read_structural(SetupReader& reader, EffectSelection& selection) {
    reader.label();
    reader.integer("structural section flag", selection.structural_flag);
    if (selection.structural_flag != 1) {
        return;
    }
    for (const int id : selection.catalogue->setup_order) {
        const StructuralEffect& effect = selection.catalogue->effects[static_cast<std::size_t>(id)];
        StructuralChoice& choice = selection.structural[static_cast<std::size_t>(id)];
        const std::string name = effect.row;
        int flag = 0;
        reader.label();
        if (reader.integer(name + " flag", flag) && reader.real(name + " value", choice.value) &&
            effect.traits.alternating) {
            reader.single(name + " lambda", choice.lambda);
        }
        if (flag == 1) {
            choice.position = selection.structural_count++;
        }
    }
}

void read_attribute_rows(SetupReader& reader, EffectSelection& selection, AttributeGroup group,
                         const std::string& name) {
    AttributeSelection& chosen = group_of(selection, group);
    const AttributeGroupCatalogue& rows = group_catalogue(*selection.catalogue, group);
    reader.check_count(chosen.attributes);
    selection_resize_group(selection, group, chosen.attributes);
    for (int attribute = 0; attribute < chosen.attributes; ++attribute) {
        for (const int row : rows.setup_order) {
            const std::string field =
                name + " " + std::to_string(attribute + 1) + ": " +
                text_with_name(rows.effects[static_cast<std::size_t>(row)].update, "");
            AttributeChoice& choice =
                chosen.choices[static_cast<std::size_t>(row)][static_cast<std::size_t>(attribute)];
            reader.label();
            if (reader.integer(field + " flag", choice.flag)) {
                reader.real(field + " value", choice.value);
            }
            chosen.selected += choice.flag == 1 ? 1 : 0;
        }
    }
}

void read_attribute_block(SetupReader& reader, EffectSelection& selection, AttributeGroup group,
                          const std::string& name) {
    AttributeSelection& chosen = group_of(selection, group);
    reader.label();
    reader.integer(name + " section flag", chosen.flag);
    if (chosen.flag != 1) {
        return;
    }
    reader.integer(name + " count", chosen.attributes);
    if (chosen.attributes != 0) {
        reader.label();
        reader.line(name + " file", chosen.path);
        read_attribute_rows(reader, selection, group, name);
    }
}

void read_attributes(SetupReader& reader, EffectSelection& selection) {
    int flag = 0;
    reader.label();
    reader.integer("attribute section flag", flag);
    if (flag == 1) {
        read_attribute_block(reader, selection, AttributeGroup::binary, "binary attribute");
        read_attribute_block(reader, selection, AttributeGroup::continuous, "continuous attribute");
        read_attribute_block(reader, selection, AttributeGroup::categorical,
                             "categorical attribute");
    }
}

void read_covariate_section(SetupReader& reader, EffectSelection& selection) {
    AttributeSelection& chosen = group_of(selection, AttributeGroup::covariate);
    reader.label();
    reader.integer("covariate section flag", chosen.flag);
    if (chosen.flag != 1) {
        return;
    }
    reader.integer("covariate count", chosen.attributes);
    // A directed section ends at a count of 0; an undirected one has its path line all the same.
    if (chosen.attributes != 0 || selection.catalogue->kind == NetworkKind::undirected) {
        reader.label();
        reader.line("covariate file", chosen.path);
        read_attribute_rows(reader, selection, AttributeGroup::covariate, "covariate");
    }
}

void read_free_dyads(SetupReader& reader, RunSettings& settings) {
    reader.label();
    reader.integer("free dyads flag", settings.free_dyads_flag);
    if (settings.free_dyads_flag == 1) {
        reader.line("free dyads file", settings.free_dyads_path);
    }
}

void read_switches(SetupReader& reader, OutputSwitches& switches) {
    const auto read = [&reader](const char* field, bool& target) {
        int flag = 0;
        reader.label();
        reader.integer(field, flag);
        target = flag == 1;
    };
    read("sample graphs switch", switches.sample_graphs);
    read("degree distribution switch", switches.degree_distribution);
    read("geodesic distribution switch", switches.geodesic_distribution);
    read("cluster and giant switch", switches.cluster_giant);
    read("triangle distribution switch", switches.triangle_distribution);
    read("two-path distribution switch", switches.two_path_distribution);
    read("ET distribution switch", switches.et_distribution);
}

void read_estimation(SetupReader& reader, RunSettings& settings) {
    EstimationSettings& estimation = settings.estimation;
    reader.label();
    reader.integer("number of sub-phases", estimation.sub_phases);
    reader.label();
    reader.single("starting a-value", estimation.a_value);
    reader.label();
    reader.integer("multiplication factor", estimation.multiplication_factor);
    reader.label();
    reader.integer("steps of phase 3", estimation.phase3_steps);
    reader.label();
    reader.integer("number of estimation runs", estimation.estimation_runs);
    reader.label();
    reader.integer("goodness of fit after estimation", settings.gof_after_estimation);
}

void read_body(SetupReader& reader, SetupFile& setup, RunMode mode) {
    RunSettings& settings = setup.settings;
    reader.label();
    reader.integer("actor count", settings.actor_count);
    setup.selection.actors = settings.actor_count;
    reader.label();
    if (mode == RunMode::simulation) {
        reader.single("density", settings.density);
    } else {
        reader.line("network file", settings.network_path);
    }
    read_cap(reader, settings);
    read_structural(reader, setup.selection);
    read_attributes(reader, setup.selection);
    read_covariate_section(reader, setup.selection);
    if (mode == RunMode::bayesian_fit) {
        reader.label();
        reader.line("covariance file", settings.covariance_path);
    }
    read_free_dyads(reader, settings);
    if (mode == RunMode::estimation) {
        read_estimation(reader, settings);
        return;
    }
    read_switches(reader, settings.switches);
    reader.label();
    reader.real("burn-in", settings.burn_in);
    if (mode != RunMode::bayesian_fit) {
        reader.label();
        reader.real("iterations", settings.iterations);
    }
    reader.label();
    reader.integer("sample count", settings.sample_count);
}

void echo_block(TextWriter& out, const AttributeSelection& group, const char* name,
                int last_count) {
    if (group.flag != 1) {
        return;
    }
    out.print("%s attributes\n", name);
    out.print("%d %s attributes\n", group.attributes, name);
    if (group.attributes != 0) {
        out.text(group.path + "\n");
        out.print("%d %s attributes\n", last_count, name);
    }
}

}  // namespace

SetupFile read_setup(const std::string& path, SetupTrace* trace) {
    SetupReader reader(path, trace);
    SetupFile setup;
    setup.opened = reader.opened();
    if (!setup.opened) {
        return setup;
    }
    RunSettings& settings = setup.settings;
    read_head(reader, settings);
    const bool known = settings.run_mode >= 1 && settings.run_mode <= 4 &&
                       (settings.network_kind == 1 || settings.network_kind == 2);
    if (known) {
        setup.selection = selection_create(static_cast<NetworkKind>(settings.network_kind));
        read_body(reader, setup, static_cast<RunMode>(settings.run_mode));
    }
    reader.finish();
    return setup;
}

void echo_sections(const EffectSelection& selection, std::FILE* console) {
    if (selection.catalogue->kind == NetworkKind::directed) {
        return;
    }
    TextWriter out(console);
    const AttributeSelection& binary = group_of(selection, AttributeGroup::binary);
    const AttributeSelection& continuous = group_of(selection, AttributeGroup::continuous);
    const AttributeSelection& categorical = group_of(selection, AttributeGroup::categorical);
    echo_block(out, binary, "binary", binary.attributes);
    // The last line of this block counts the binary attributes; consoles have always shown it.
    echo_block(out, continuous, "continuous", binary.attributes);
    if (categorical.flag == 1 && categorical.attributes != 0) {
        out.text(categorical.path + "\n");
        out.print("%d categorical attributes\n", categorical.attributes);
    }
}
