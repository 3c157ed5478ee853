#include "show/result_csv.h"

#include <fmt/core.h>

#include <array>

#include "formats/csv.h"
#include "show/document_pieces.h"

std::string estimates_csv(const ResultRecord& result) {
    std::string text =
        "effect,estimate,standard_error,mc_error,z,p_value,lower,upper,odds_ratio,t_ratio,"
        "observed,simulated_mean,simulated_sd,fixed\n";
    for (const ResultEffect& effect : result.effects) {
        text += csv_field(effect.name);
        for (const double value :
             {effect.estimate, effect.standard_error, effect.mc_error, effect.z, effect.p_value,
              effect.lower, effect.upper, effect.odds_ratio, effect.t_ratio, effect.observed,
              effect.simulated_mean, effect.simulated_sd}) {
            text += "," + csv_number(value);
        }
        text += effect.fixed ? ",true\n" : ",false\n";
    }
    return text;
}

std::string covariance_csv(const ResultRecord& result) {
    std::string text = "effect";
    for (const ResultEffect& effect : result.effects) {
        text += "," + csv_field(effect.name);
    }
    text += "\n";
    for (int i = 0; i < result.covariance.rows; ++i) {
        text += csv_field(result.effects[static_cast<std::size_t>(i)].name);
        for (int j = 0; j < result.covariance.columns; ++j) {
            text += "," + csv_number(result.covariance[i][j]);
        }
        text += "\n";
    }
    return text;
}

std::string sample_head(const std::vector<std::string>& effects) {
    std::string text = "chain,draw";
    for (const std::string& effect : effects) {
        text += "," + csv_field(effect);
    }
    return text + "\n";
}

std::string sample_row(int chain, int draw, const std::vector<double>& statistics) {
    std::string text = fmt::format("{},{}", chain, draw);
    for (const double value : statistics) {
        text += "," + csv_number(value);
    }
    return text + "\n";
}
