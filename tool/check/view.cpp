#include "check/checks.h"

Findings check_view(SetupView& view) {
    Findings findings;
    check_setup(view, findings);
    check_outputs(view, findings);
    check_settings(view, findings);
    if (!check_memory(view, findings)) {
        return findings;
    }
    std::optional<Ties> observed;
    std::optional<Ties> free_dyads;
    const RunSettings& settings = view.setup.settings;
    if (find_item(view, SetupId::network_file) != nullptr) {
        observed = check_network(view, SetupId::network_file, settings.network_path, findings);
    }
    if (find_item(view, SetupId::free_dyads_file) != nullptr) {
        free_dyads =
            check_network(view, SetupId::free_dyads_file, settings.free_dyads_path, findings);
    }
    const Ties* ties = observed ? &*observed : nullptr;
    const Ties* free = free_dyads ? &*free_dyads : nullptr;
    check_sizes(view, ties, findings);
    check_moves(view, ties, free, findings);
    check_attributes(view, findings);
    check_covariates(view, findings);
    check_covariance(view, findings);
    check_model(view, findings);
    check_estimability(view, ties, free, findings);
    return findings;
}
