#include "study/gof_summary.h"

#include <algorithm>
#include <cmath>
#include <set>

#include "base/no_number.h"

namespace {

constexpr double kFar = 2.0;
constexpr double kRare = 0.05;
// A pivot below this share of its diagonal stands for a combination of the columns before it.
constexpr double kDependent = 1e-9;
// Samples for each statistic that a distance is measured by.
constexpr int kSamplesPerStatistic = 5;

double ascending_quantile(std::span<const double> ascending, double share) {
    if (ascending.empty()) {
        return kNoNumber;
    }
    const double place = share * static_cast<double>(ascending.size() - 1);
    const auto below = static_cast<std::size_t>(place);
    const std::size_t above = std::min(below + 1, ascending.size() - 1);
    const double part = place - static_cast<double>(below);
    return ascending[below] + part * (ascending[above] - ascending[below]);
}

// How samples compare with the observed value.
struct Rank {
    int below = 0;
    int above = 0;
    int equal = 0;
    void add(double sample, double observed, int times = 1) {
        (sample < observed ? below : sample > observed ? above : equal) += times;
    }
};

GofStatistic summarised(const std::string& name, double observed, std::vector<double> sampled) {
    GofStatistic statistic{.name = name, .observed = observed};
    sampled.erase(std::remove_if(sampled.begin(), sampled.end(),
                                 [](double value) { return !std::isfinite(value); }),
                  sampled.end());
    const auto count = static_cast<double>(sampled.size());
    double sum = 0.0;
    Rank rank;
    for (const double value : sampled) {
        sum += value;
        rank.add(value, observed);
    }
    statistic.mean = sum / count;
    double squares = 0.0;
    for (const double value : sampled) {
        squares += (value - statistic.mean) * (value - statistic.mean);
    }
    std::sort(sampled.begin(), sampled.end());
    // The mean of equal values need not be that value.
    const bool still = !sampled.empty() && sampled.front() == sampled.back();
    statistic.mean = still ? sampled.front() : statistic.mean;
    statistic.sd = still ? 0.0 : std::sqrt(squares / count);
    statistic.t_ratio = statistic.sd > 0.0 ? (observed - statistic.mean) / statistic.sd : kNoNumber;
    statistic.p_value = std::isfinite(observed) && count > 0.0
                            ? rank_p_value(rank.below, rank.above, rank.equal)
                            : kNoNumber;
    statistic.q05 = ascending_quantile(sampled, 0.05);
    statistic.median = ascending_quantile(sampled, 0.5);
    statistic.q95 = ascending_quantile(sampled, 0.95);
    return statistic;
}

double count_at(const SparseCounts& counts, int entry) {
    const auto place = std::lower_bound(
        counts.begin(), counts.end(), entry,
        [](const std::pair<int, double>& each, int wanted) { return each.first < wanted; });
    return place != counts.end() && place->first == entry ? place->second : 0.0;
}

void add_entries(const SparseCounts& counts, std::set<int>& entries) {
    for (const auto& [entry, count] : counts) {
        entries.insert(entry);
    }
}

// The entries that are shown, ascending.
std::set<int> shown_entries(const GofShape& shape, std::size_t number, const GofMeasures& observed,
                            const std::vector<GofMeasures>& samples) {
    std::set<int> entries;
    for (std::size_t label = 0; label < shape.labels.size(); ++label) {
        entries.insert(static_cast<int>(label));
    }
    add_entries(observed.distributions[number], entries);
    for (const GofMeasures& sample : samples) {
        add_entries(sample.distributions[number], entries);
    }
    if (shape.gaps || !shape.labels.empty()) {
        return entries;
    }
    const bool any_infinite = shape.infinite >= 0 && entries.erase(shape.infinite) > 0;
    const int last = entries.empty() ? shape.first - 1 : *entries.rbegin();
    for (int entry = shape.first; entry <= last; ++entry) {
        entries.insert(entry);
    }
    if (any_infinite) {
        entries.insert(shape.infinite);
    }
    return entries;
}

GofRow named_row(const GofShape& shape, int entry) {
    const auto label = static_cast<std::size_t>(entry);
    if (entry == shape.infinite) {
        return {.at = "inf"};
    }
    if (label < shape.labels.size()) {
        return {.at = shape.labels[label]};
    }
    return {.at = std::to_string(entry), .number = entry};
}

GofRow summarised_row(const GofShape& shape, int entry, std::size_t number,
                      const GofMeasures& observed, const std::vector<GofMeasures>& samples) {
    GofRow row = named_row(shape, entry);
    row.observed = count_at(observed.distributions[number], entry);
    std::vector<double> counts;
    double sum = 0.0;
    Rank rank;
    for (const GofMeasures& sample : samples) {
        const double count = count_at(sample.distributions[number], entry);
        sum += count;
        rank.add(count, row.observed);
        if (count != 0.0) {
            counts.push_back(count);
        }
    }
    std::sort(counts.begin(), counts.end());
    const std::size_t zeros = samples.size() - counts.size();
    row.mean = samples.empty() ? kNoNumber : sum / static_cast<double>(samples.size());
    row.q05 = quantile_with_zeros(counts, zeros, 0.05);
    row.q25 = quantile_with_zeros(counts, zeros, 0.25);
    row.median = quantile_with_zeros(counts, zeros, 0.5);
    row.q75 = quantile_with_zeros(counts, zeros, 0.75);
    row.q95 = quantile_with_zeros(counts, zeros, 0.95);
    row.p_value = samples.empty() ? kNoNumber : rank_p_value(rank.below, rank.above, rank.equal);
    return row;
}

// The statistics that a distance is measured by: those that moved, each a number in every network
// and no combination of those before it. Their deviations are scaled by their standard deviations.
class Distances {
  public:
    Distances(const std::vector<GofStatistic>& statistics, const GofMeasures& observed,
              const std::vector<GofMeasures>& samples)
        : statistics_(statistics), samples_(samples) {
        for (std::size_t k = 0; k < statistics.size(); ++k) {
            if (has_room() && is_usable(k, observed)) {
                take(k);
            }
        }
        observed_ = squared(observed);
    }

    // Squared distance of the observed network.
    double observed() const { return columns_.empty() ? kNoNumber : observed_; }

    // Share of samples at least as far from the mean of the others, by their covariance; the
    // observed network counted as one.
    double p_value() const {
        if (columns_.empty()) {
            return kNoNumber;
        }
        const auto n = static_cast<double>(samples_.size());
        int farther = 1;
        for (const GofMeasures& sample : samples_) {
            // The sample taken out of mean and scatter (Sherman and Morrison 1950).
            const double share = squared(sample) / (n - 1.0);
            farther += share >= 1.0 || left_out(share, n) >= observed_ ? 1 : 0;
        }
        return farther / (n + 1.0);
    }

  private:
    static double left_out(double share, double n) {
        const double scale = n / (n - 1.0);
        return (n - 1.0) * scale * scale * (share * (n - 1.0) / n) / (1.0 - share);
    }

    bool has_room() const {
        return static_cast<int>(columns_.size() + 1) * kSamplesPerStatistic <=
               static_cast<int>(samples_.size());
    }

    bool is_usable(std::size_t k, const GofMeasures& observed) const {
        return statistics_[k].sd > 0.0 && std::isfinite(observed.statistics[k]) &&
               std::all_of(samples_.begin(), samples_.end(), [k](const GofMeasures& sample) {
                   return std::isfinite(sample.statistics[k]);
               });
    }

    double scaled(const GofMeasures& of, std::size_t k) const {
        return (of.statistics[k] - statistics_[k].mean) / statistics_[k].sd;
    }

    // One more row of the covariance's root, unless it depends on those before.
    void take(std::size_t k) {
        std::vector<double> row;
        double pivot = 1.0;
        for (std::size_t i = 0; i < columns_.size(); ++i) {
            double product = 0.0;
            for (const GofMeasures& sample : samples_) {
                product += scaled(sample, columns_[i]) * scaled(sample, k);
            }
            double entry = product / static_cast<double>(samples_.size());
            for (std::size_t j = 0; j < i; ++j) {
                entry -= root_[i][j] * row[j];
            }
            row.push_back(entry / root_[i][i]);
            pivot -= row.back() * row.back();
        }
        if (pivot > kDependent) {
            row.push_back(std::sqrt(pivot));
            root_.push_back(std::move(row));
            columns_.push_back(k);
        }
    }

    double squared(const GofMeasures& of) const {
        std::vector<double> solved;
        double sum = 0.0;
        for (std::size_t i = 0; i < columns_.size(); ++i) {
            double entry = scaled(of, columns_[i]);
            for (std::size_t j = 0; j < i; ++j) {
                entry -= root_[i][j] * solved[j];
            }
            solved.push_back(entry / root_[i][i]);
            sum += solved.back() * solved.back();
        }
        return sum;
    }

    const std::vector<GofStatistic>& statistics_;
    const std::vector<GofMeasures>& samples_;
    std::vector<std::size_t> columns_;
    std::vector<std::vector<double>> root_;
    double observed_ = 0.0;
};

}  // namespace

double quantile_with_zeros(std::span<const double> ascending, std::size_t zeros, double share) {
    const std::size_t count = ascending.size() + zeros;
    if (count == 0) {
        return kNoNumber;
    }
    const auto value = [&](std::size_t place) {
        return place < zeros ? 0.0 : ascending[place - zeros];
    };
    const double place = share * static_cast<double>(count - 1);
    const auto below = static_cast<std::size_t>(place);
    const double low = value(below);
    const double high = value(std::min(below + 1, count - 1));
    return low + (place - static_cast<double>(below)) * (high - low);
}

double rank_p_value(int below, int above, int equal) {
    const double smaller = std::min(below, above) + equal + 1.0;
    return std::min(1.0, 2.0 * smaller / (below + above + equal + 1.0));
}

StudyGof summarised_gof(const std::vector<std::string>& names, const std::vector<GofShape>& shapes,
                        const GofMeasures& observed, const std::vector<GofMeasures>& samples) {
    StudyGof gof;
    gof.samples = static_cast<int>(samples.size());
    std::vector<double> sampled(samples.size());
    for (std::size_t k = 0; k < names.size(); ++k) {
        std::transform(samples.begin(), samples.end(), sampled.begin(),
                       [k](const GofMeasures& sample) { return sample.statistics[k]; });
        gof.statistics.push_back(summarised(names[k], observed.statistics[k], sampled));
    }
    for (std::size_t number = 0; number < shapes.size(); ++number) {
        GofDistribution distribution{shapes[number].name, {}, !shapes[number].gaps};
        for (const int entry : shown_entries(shapes[number], number, observed, samples)) {
            distribution.rows.push_back(
                summarised_row(shapes[number], entry, number, observed, samples));
        }
        gof.distributions.push_back(std::move(distribution));
    }
    const Distances distances(gof.statistics, observed, samples);
    gof.mahalanobis = std::sqrt(distances.observed());
    gof.mahalanobis_p_value = distances.p_value();
    return gof;
}

Matrix lower_root(const Matrix& matrix) {
    const int p = matrix.rows;
    Matrix root = matrix_create(p, p, 0.0);
    for (int j = 0; j < p; ++j) {
        double pivot = matrix[j][j];
        for (int k = 0; k < j; ++k) {
            pivot -= root[j][k] * root[j][k];
        }
        if (!(pivot > kDependent * matrix[j][j])) {
            for (int k = 0; k < j && !std::isfinite(matrix[j][j]); ++k) {
                root[j][k] = 0.0;
            }
            continue;
        }
        root[j][j] = std::sqrt(pivot);
        for (int i = j + 1; i < p; ++i) {
            double entry = matrix[i][j];
            for (int k = 0; k < j; ++k) {
                entry -= root[i][k] * root[j][k];
            }
            root[i][j] = std::isfinite(entry) ? entry / root[j][j] : 0.0;
        }
    }
    return root;
}

bool is_misfit(const GofStatistic& statistic) {
    return std::isfinite(statistic.t_ratio)
               ? std::fabs(statistic.t_ratio) > kFar
               : statistic.sd == 0.0 && std::isfinite(statistic.observed) &&
                     statistic.observed != statistic.mean;
}

std::vector<std::size_t> misfit_rows(const GofDistribution& distribution, int samples) {
    // The p-value of what no sample reaches, and a little more.
    const double least = 2.5 / (samples + 1.0);
    const double bound = std::max(kRare / static_cast<double>(distribution.rows.size()), least);
    std::vector<std::size_t> misfits;
    for (std::size_t row = 0; row < distribution.rows.size() && distribution.judged; ++row) {
        if (distribution.rows[row].p_value < bound) {
            misfits.push_back(row);
        }
    }
    return misfits;
}
