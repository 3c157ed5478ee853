#include "study/sample_diagnosis.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>

#include "base/no_number.h"
#include "study/positive_matrix.h"

namespace {

double mean_of(const double* values, std::size_t count) {
    return count > 0 ? std::accumulate(values, values + count, 0.0) / static_cast<double>(count)
                     : 0.0;
}

// The continued fraction of the incomplete beta function, by Lentz's method.
double beta_fraction(double a, double b, double x) {
    constexpr double kTiny = 1e-300;
    constexpr int kMost = 10000;
    const auto safe = [](double value) { return std::fabs(value) < kTiny ? kTiny : value; };
    double c = 1.0;
    double d = 1.0 / safe(1.0 - (a + b) * x / (a + 1.0));
    double fraction = d;
    for (int m = 1; m < kMost; ++m) {
        const double even = m * (b - m) * x / ((a + 2.0 * m - 1.0) * (a + 2.0 * m));
        d = 1.0 / safe(1.0 + even * d);
        c = safe(1.0 + even / c);
        fraction *= d * c;
        const double odd = -(a + m) * (a + b + m) * x / ((a + 2.0 * m) * (a + 2.0 * m + 1.0));
        d = 1.0 / safe(1.0 + odd * d);
        c = safe(1.0 + odd / c);
        fraction *= d * c;
        if (std::fabs(d * c - 1.0) < 1e-14) {
            break;
        }
    }
    return fraction;
}

// The regularised incomplete beta function.
double beta_share(double a, double b, double x) {
    if (!(x > 0.0)) {
        return 0.0;
    }
    if (x >= 1.0) {
        return 1.0;
    }
    const double front = std::exp(std::lgamma(a + b) - std::lgamma(a) - std::lgamma(b) +
                                  a * std::log(x) + b * std::log1p(-x));
    return x < (a + 1.0) / (a + b + 2.0) ? front * beta_fraction(a, b, x) / a
                                         : 1.0 - front * beta_fraction(b, a, 1.0 - x) / b;
}

// The simplex method for hull_ray: one basic weight for each coordinate.
class RaySimplex {
  public:
    RaySimplex(const Matrix& points, const std::vector<double>& target)
        : points_(points), q_(points.columns), inverse_(matrix_create(q_, q_, 0.0)) {
        for (int k = 0; k < q_; ++k) {
            const double at = target[static_cast<std::size_t>(k)];
            inverse_[k][k] = at < 0.0 ? -1.0 : 1.0;
            weights_.push_back(std::fabs(at));
            costs_.push_back(kArtificial);
        }
    }

    void solve() {
        const int most = 200 + 50 * q_;
        for (int step = 0; step < most; ++step) {
            price();
            // After many steps the first that gains, so that no circle is run for ever.
            const int entering = 2 * step < most ? best_gain() : first_gain();
            if (entering < 0 || !enter(entering)) {
                return;
            }
        }
        price();
    }

    const std::vector<double>& normal() const { return normal_; }
    double total() const {
        double sum = 0.0;
        for (std::size_t k = 0; k < weights_.size(); ++k) {
            sum += weights_[k] * costs_[k];
        }
        return sum;
    }

  private:
    // What a weight costs that stands for no point.
    static constexpr double kArtificial = 1e6;
    static constexpr double kRounding = 1e-9;

    double value(int row) const {
        double sum = 0.0;
        for (int k = 0; k < q_; ++k) {
            sum += normal_[static_cast<std::size_t>(k)] * points_[row][k];
        }
        return sum;
    }
    void price() {
        normal_.assign(static_cast<std::size_t>(q_), 0.0);
        for (int i = 0; i < q_; ++i) {
            for (int k = 0; k < q_; ++k) {
                normal_[static_cast<std::size_t>(k)] +=
                    costs_[static_cast<std::size_t>(i)] * inverse_[i][k];
            }
        }
    }
    int best_gain() const {
        int best = -1;
        double most = 1.0 + kRounding;
        for (int row = 0; row < points_.rows; ++row) {
            const double gain = value(row);
            if (gain > most) {
                most = gain;
                best = row;
            }
        }
        return best;
    }
    int first_gain() const {
        for (int row = 0; row < points_.rows; ++row) {
            if (value(row) > 1.0 + kRounding) {
                return row;
            }
        }
        return -1;
    }
    // Brings a point into the basis; false when nothing leaves it.
    bool enter(int row) {
        std::vector<double> column(static_cast<std::size_t>(q_), 0.0);
        for (int i = 0; i < q_; ++i) {
            for (int k = 0; k < q_; ++k) {
                column[static_cast<std::size_t>(i)] += inverse_[i][k] * points_[row][k];
            }
        }
        int leaving = -1;
        double least = std::numeric_limits<double>::infinity();
        for (int i = 0; i < q_; ++i) {
            const auto at = static_cast<std::size_t>(i);
            if (column[at] > 1e-11 && weights_[at] / column[at] < least) {
                least = weights_[at] / column[at];
                leaving = i;
            }
        }
        if (leaving < 0) {
            return false;
        }
        const double pivot = column[static_cast<std::size_t>(leaving)];
        for (int k = 0; k < q_; ++k) {
            inverse_[leaving][k] /= pivot;
        }
        for (int i = 0; i < q_; ++i) {
            const auto at = static_cast<std::size_t>(i);
            if (i != leaving) {
                weights_[at] = std::max(0.0, weights_[at] - least * column[at]);
                for (int k = 0; k < q_; ++k) {
                    inverse_[i][k] -= column[at] * inverse_[leaving][k];
                }
            }
        }
        weights_[static_cast<std::size_t>(leaving)] = least;
        costs_[static_cast<std::size_t>(leaving)] = 1.0;
        return true;
    }

    const Matrix& points_;
    int q_;
    Matrix inverse_;  // of the basic columns
    std::vector<double> weights_;
    std::vector<double> costs_;
    std::vector<double> normal_;
};

}  // namespace

double largest_autocorrelation(const Matrix& samples, const std::vector<double>& means,
                               int chains) {
    const int length = std::max(samples.rows / chains, 1);
    double largest = 0.0;
    for (int column = 0; column < samples.columns; ++column) {
        const double mean = means[static_cast<std::size_t>(column)];
        double products = 0.0;
        double squares = 0.0;
        for (int row = 0; row < samples.rows; ++row) {
            const double deviation = samples[row][column] - mean;
            squares += deviation * deviation;
            products += row % length > 0 ? deviation * (samples[row - 1][column] - mean) : 0.0;
        }
        largest = squares > 0.0 ? std::max(largest, products / squares) : largest;
    }
    return largest;
}

SampleMoments sample_moments(const Matrix& samples) {
    const int p = samples.columns;
    SampleMoments moments{std::vector<double>(static_cast<std::size_t>(p), 0.0),
                          matrix_create(p, p, 0.0)};
    if (samples.rows == 0) {
        return moments;
    }
    for (int row = 0; row < samples.rows; ++row) {
        for (int k = 0; k < p; ++k) {
            moments.means[static_cast<std::size_t>(k)] += samples[row][k];
        }
    }
    for (double& mean : moments.means) {
        mean /= samples.rows;
    }
    for (int row = 0; row < samples.rows; ++row) {
        for (int i = 0; i < p; ++i) {
            const double deviation = samples[row][i] - moments.means[static_cast<std::size_t>(i)];
            for (int j = 0; j <= i; ++j) {
                moments.covariance[i][j] +=
                    deviation * (samples[row][j] - moments.means[static_cast<std::size_t>(j)]);
            }
        }
    }
    for (int i = 0; i < p; ++i) {
        for (int j = 0; j <= i; ++j) {
            moments.covariance[i][j] /= samples.rows;
            moments.covariance[j][i] = moments.covariance[i][j];
        }
    }
    return moments;
}

std::vector<double> sample_column(const Matrix& samples, int column) {
    std::vector<double> values;
    values.reserve(static_cast<std::size_t>(samples.rows));
    for (int row = 0; row < samples.rows; ++row) {
        values.push_back(samples[row][column]);
    }
    return values;
}

double autocorrelation_time(const std::vector<double>& values, int chains) {
    const std::size_t parts = chains > 1 ? static_cast<std::size_t>(chains) : 1;
    const std::size_t length = values.size() / parts;
    const std::size_t count = length * parts;
    const double mean = mean_of(values.data(), count);
    const auto covariance = [&](std::size_t lag) {
        double sum = 0.0;
        for (std::size_t begin = 0; begin < count; begin += length) {
            for (std::size_t t = begin; t + lag < begin + length; ++t) {
                sum += (values[t] - mean) * (values[t + lag] - mean);
            }
        }
        // Each lag has fewer pairs than values: one less in every chain.
        const std::size_t pairs = count - lag * parts;
        return sum / static_cast<double>(pairs);
    };
    if (length == 0) {
        return 1.0;
    }
    const double variance = covariance(0);
    if (!(variance > 0.0)) {
        return static_cast<double>(count);
    }
    double sum = -1.0;
    double before = std::numeric_limits<double>::infinity();
    for (std::size_t lag = 0; lag + 1 < length; lag += 2) {
        const double pair = (covariance(lag) + covariance(lag + 1)) / variance;
        if (!(pair > 0.0)) {
            break;
        }
        before = std::min(before, pair);
        sum += 2.0 * before;
    }
    return std::clamp(sum, 1.0, static_cast<double>(count));
}

double gelman_rubin(const std::vector<double>& values, int chains) {
    const auto m = static_cast<std::size_t>(std::max(chains, 1));
    const std::size_t length = values.size() / m;
    if (m < 2 || length < 2) {
        return kNoNumber;
    }
    const double mean = mean_of(values.data(), m * length);
    double between = 0.0;
    double within = 0.0;
    for (std::size_t chain = 0; chain < m; ++chain) {
        const double* begin = values.data() + chain * length;
        const double own = mean_of(begin, length);
        between += (own - mean) * (own - mean);
        for (std::size_t t = 0; t < length; ++t) {
            within += (begin[t] - own) * (begin[t] - own);
        }
    }
    between /= static_cast<double>(m - 1);
    within /= static_cast<double>(m * (length - 1));
    const double shrunk = static_cast<double>(length - 1) / static_cast<double>(length);
    return within > 0.0 ? std::sqrt(shrunk + between / within) : kNoNumber;
}

MeanCovariance covariance_of_mean(const Matrix& samples, int chains) {
    constexpr int kLeastBatches = 8;
    constexpr int kBatchesAColumn = 4;
    const int length = samples.rows / std::max(chains, 1);
    const int wanted = std::max(kLeastBatches, (kBatchesAColumn * samples.columns) / chains + 1);
    const int a_chain = std::min(wanted, length);
    if (a_chain < 1) {
        return {matrix_create(samples.columns, samples.columns, 0.0), 0};
    }
    Matrix means = matrix_create(chains * a_chain, samples.columns, 0.0);
    for (int chain = 0; chain < chains; ++chain) {
        for (int batch = 0; batch < a_chain; ++batch) {
            const int begin = chain * length + batch * length / a_chain;
            const int end = chain * length + (batch + 1) * length / a_chain;
            double* mean = means[chain * a_chain + batch];
            for (int row = begin; row < end; ++row) {
                for (int k = 0; k < samples.columns; ++k) {
                    mean[k] += samples[row][k] / (end - begin);
                }
            }
        }
    }
    MeanCovariance found{sample_moments(means).covariance, means.rows};
    for (double& cell : found.covariance.cells) {
        cell /= std::max(means.rows - 1, 1);
    }
    return found;
}

double f_upper_tail(double f, double numerator, double denominator) {
    return f > 0.0 ? beta_share(denominator / 2.0, numerator / 2.0,
                                denominator / (denominator + numerator * f))
                   : 1.0;
}

double hotelling_p_value(const Matrix& samples, int chains, const std::vector<int>& columns,
                         const std::vector<double>& observed) {
    Matrix chosen = matrix_create(samples.rows, static_cast<int>(columns.size()), 0.0);
    for (int row = 0; row < samples.rows; ++row) {
        for (int k = 0; k < chosen.columns; ++k) {
            const int column = columns[static_cast<std::size_t>(k)];
            chosen[row][k] = samples[row][column] - observed[static_cast<std::size_t>(column)];
        }
    }
    const MeanCovariance spread = covariance_of_mean(chosen, chains);
    const int q = chosen.columns;
    const auto lower = cholesky(spread.covariance);
    if (!lower || spread.batches <= q) {
        return 0.0;
    }
    const double square = inverse_form(*lower, sample_moments(chosen).means);
    const double freedom = spread.batches - q;
    return f_upper_tail(square * freedom / ((spread.batches - 1.0) * q), q, freedom);
}

HullRay hull_ray(const Matrix& points, const std::vector<double>& target) {
    RaySimplex simplex(points, target);
    simplex.solve();
    const double total = simplex.total();
    return {total > 0.0 ? 1.0 / total : std::numeric_limits<double>::infinity(), simplex.normal()};
}

TieClusters tie_clusters(std::vector<double> ties, double dyads) {
    constexpr double kApart = 0.3;
    constexpr double kDeviations = 4.0;
    constexpr double kShare = 0.01;
    TieClusters clusters;
    if (ties.empty()) {
        return clusters;
    }
    std::sort(ties.begin(), ties.end());
    const auto count = static_cast<double>(ties.size());
    const double total = std::accumulate(ties.begin(), ties.end(), 0.0);
    const double squares = std::inner_product(ties.begin(), ties.end(), ties.begin(), 0.0);
    clusters.lower_mean = clusters.upper_mean = total / count;
    double best = 0.0;
    double below = 0.0;
    double within = 0.0;
    for (std::size_t k = 1; k < ties.size(); ++k) {
        below += ties[k - 1];
        const auto lower = static_cast<double>(k);
        const double upper = count - lower;
        const double low = below / lower;
        const double high = (total - below) / upper;
        const double between = lower * upper * (high - low) * (high - low);
        if (between > best) {
            best = between;
            clusters.lower_mean = low;
            clusters.upper_mean = high;
            clusters.upper_share = upper / count;
            within = (squares - lower * low * low - upper * high * high) / count;
        }
    }
    const double gap = clusters.upper_mean - clusters.lower_mean;
    const double smaller = std::min(clusters.upper_share, 1.0 - clusters.upper_share);
    clusters.apart = gap >= kApart * dyads && smaller >= kShare &&
                     gap >= kDeviations * std::sqrt(std::max(within, 0.0));
    return clusters;
}
