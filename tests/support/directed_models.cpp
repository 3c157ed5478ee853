#include "support/directed_models.h"

using reference::Stage;

DirectedStructuralModel::DirectedStructuralModel(float lambda)
    : selection_(selection_create(NetworkKind::directed)) {
    int position = 0;
    for (StructuralChoice& choice : selection_.structural) {
        choice.position = position++;
        choice.lambda = lambda;
    }
    selection_.structural_count = position;
    assemble_parameters(selection_);
    active_ = active_model<Digraph>(selection_);
}

std::vector<double> DirectedStructuralModel::changes(Digraph& digraph, int i, int j,
                                                     int adding) const {
    const std::vector<double> parameters(active_.size(), 1.0);
    std::vector<double> change(active_.size(), -1e30);
    evaluate_toggle(digraph, active_, parameters.data(), change.data(), i, j, adding);
    return change;
}

std::vector<double> DirectedStructuralModel::counts(Digraph& digraph) const {
    digraph.statistics.assign(active_.size(), -1e30);
    compute_statistics(digraph, active_);
    return digraph.statistics;
}

int directed_place(std::string_view name) {
    const auto effects = digraph_catalogue().effects;
    for (std::size_t id = 0; id < effects.size(); ++id) {
        if (effects[id].row == name) {
            return static_cast<int>(id);
        }
    }
    ADD_FAILURE() << "no directed effect is called " << name;
    return 0;
}

void expect_directed_changes(const reference::PlainDigraph& plain,
                             const DirectedStructuralModel& model, float lambda,
                             const std::vector<std::string_view>& names) {
    for (const Stage stage : {Stage::addition, Stage::deletion}) {
        const int adding = stage == Stage::addition ? 1 : 0;
        for_each_ordered_pair(plain.n, [&](int i, int j) {
            const reference::DirectedState state = reference::evaluation_state(plain, i, j, stage);
            Digraph digraph = engine_digraph(plain);
            stage_evaluation(digraph, i, j, stage);
            const std::vector<double> change = model.changes(digraph, i, j, adding);
            for (const std::string_view name : names) {
                EXPECT_EQ(reference::item(change, directed_place(name)),
                          reference::directed_effect(name).change(state, i, j, lambda))
                    << name << " of arc " << i << " to " << j << " among " << plain.n
                    << " actors, lambda " << lambda << ", adding " << adding;
            }
        });
    }
}

EffectSelection directed_group_selection(AttributeGroup group, int attributes) {
    EffectSelection selection = selection_create(NetworkKind::directed);
    selection_resize_group(selection, group, attributes);
    AttributeSelection& chosen = group_of(selection, group);
    chosen.attributes = attributes;
    for (auto& row : chosen.choices) {
        for (AttributeChoice& choice : row) {
            choice.flag = 1;
            ++chosen.selected;
        }
    }
    return selection;
}
