// SPDX-License-Identifier: GPL-3.0-or-later
#include "matting/closed_form.h"

#include <array>
#include <cmath>
#include <vector>

namespace morva::ClosedForm {

namespace {

/// Added to the covariance of a window's nine colours: what is within noise of a plain colour.
constexpr double epsilon = 1e-5;
constexpr double enough = 1e-3;  // of the residual; 24 to 63 steps on portraits
constexpr int mostSteps = 100;

constexpr int reach = 2;  // of a cell's neighbours in the system
constexpr int side = 2 * reach + 1;
using Stencil = std::array<float, side * side>;

/// The system over the open cells, on a grid with a border, so that every stencil lies inside.
class System {
public:
    System(const cv::Mat& colours, const cv::Mat& known)
        : columns_(colours.cols + 2 * reach), index_(colours.size(), CV_32SC1, cv::Scalar(-1)) {
        for (int y = 0; y < known.rows; ++y) {
            for (int x = 0; x < known.cols; ++x) {
                if (known.at<unsigned char>(y, x) != 0) continue;
                index_.at<int>(y, x) = static_cast<int>(cells_.size());
                cells_.push_back(static_cast<std::size_t>((y + reach) * columns_ + x + reach));
            }
        }
        stencils_.resize(cells_.size(), Stencil{});
        for (int y = 1; y + 1 < colours.rows; ++y)
            for (int x = 1; x + 1 < colours.cols; ++x)
                if (touchesOpenCell(x, y)) addWindow(colours, x, y);
    }

    std::size_t count() const { return cells_.size(); }
    /// Where open cell `i` lies in an array over the bordered grid.
    std::size_t cell(std::size_t i) const { return cells_[i]; }
    std::size_t gridSize() const {
        return static_cast<std::size_t>(columns_) *
               static_cast<std::size_t>(index_.rows + 2 * reach);
    }
    std::size_t cell(int x, int y) const {
        return static_cast<std::size_t>((y + reach) * columns_ + x + reach);
    }
    double diagonal(std::size_t i) const { return stencils_[i][side * side / 2]; }

    /// Row `i` times `grid`.
    double product(std::size_t i, const std::vector<double>& grid) const {
        const auto& stencil = stencils_[i];
        const double* row =
            grid.data() + cells_[i] - static_cast<std::size_t>(reach * columns_ + reach);
        double sum = 0;
        for (std::size_t k = 0; k < side; ++k, row += columns_)
            for (std::size_t c = 0; c < side; ++c)
                sum += static_cast<double>(stencil[k * side + c]) * row[c];
        return sum;
    }

private:
    bool touchesOpenCell(int x, int y) const {
        for (int dy = -1; dy <= 1; ++dy)
            for (int dx = -1; dx <= 1; ++dx)
                if (index_.at<int>(y + dy, x + dx) >= 0) return true;
        return false;
    }

    void addWindow(const cv::Mat& colours, int x, int y) {
        std::array<cv::Vec3f, 9> off;
        cv::Vec3f mean(0, 0, 0);
        for (int i = 0; i < 9; ++i) {
            off[static_cast<std::size_t>(i)] = colours.at<cv::Vec3f>(y + i / 3 - 1, x + i % 3 - 1);
            mean += off[static_cast<std::size_t>(i)];
        }
        mean *= 1.0F / 9;
        // Colours of a window nearly lie on a line: floats would lose the smaller axes.
        cv::Matx33d covariance = cv::Matx33d::eye() * epsilon;
        for (cv::Vec3f& o : off) {
            o -= mean;
            const cv::Vec3d wide = o;
            covariance += wide * wide.t() * (1.0 / 9);
        }
        const cv::Matx33f inverse = covariance.inv();
        for (int i = 0; i < 9; ++i) {
            const int row = index_.at<int>(y + i / 3 - 1, x + i % 3 - 1);
            if (row < 0) continue;
            const cv::Vec3f weighted = inverse * off[static_cast<std::size_t>(i)];
            addRow(stencils_[static_cast<std::size_t>(row)], i, weighted, off);
        }
    }

    static void addRow(Stencil& stencil, int i, const cv::Vec3f& weighted,
                       const std::array<cv::Vec3f, 9>& off) {
        for (int j = 0; j < 9; ++j) {
            const int dy = j / 3 - i / 3;
            const int dx = j % 3 - i % 3;
            const float share = (1 + weighted.dot(off[static_cast<std::size_t>(j)])) / 9;
            stencil[static_cast<std::size_t>((dy + reach) * side + dx + reach)] +=
                (i == j ? 1.0F : 0.0F) - share;
        }
    }

    int columns_;
    cv::Mat index_;
    std::vector<std::size_t> cells_;
    std::vector<Stencil> stencils_;
};

double dot(const std::vector<double>& a, const std::vector<double>& b) {
    double sum = 0;
    for (std::size_t i = 0; i < a.size(); ++i) sum += a[i] * b[i];
    return sum;
}

/// Conjugate gradients with the diagonal as preconditioner. `x` holds the start.
void solve(const System& system, const std::vector<double>& weight,
           const std::vector<double>& right, std::vector<double>& x) {
    const std::size_t n = system.count();
    std::vector<double> grid(system.gridSize());
    const auto times = [&](const std::vector<double>& v, std::vector<double>& out) {
        for (std::size_t i = 0; i < n; ++i) grid[system.cell(i)] = v[i];
        for (std::size_t i = 0; i < n; ++i) out[i] = system.product(i, grid) + weight[i] * v[i];
    };
    std::vector<double> product(n);
    std::vector<double> residual(n);
    std::vector<double> scaled(n);
    times(x, product);
    for (std::size_t i = 0; i < n; ++i) residual[i] = right[i] - product[i];
    const auto precondition = [&] {
        for (std::size_t i = 0; i < n; ++i)
            scaled[i] = residual[i] / (system.diagonal(i) + weight[i]);
    };
    precondition();
    std::vector<double> direction = scaled;
    double strength = dot(residual, scaled);
    const double goal = enough * enough * dot(right, right);
    for (int step = 0; step < mostSteps && dot(residual, residual) > goal; ++step) {
        times(direction, product);
        const double length = strength / dot(direction, product);
        for (std::size_t i = 0; i < n; ++i) {
            x[i] += length * direction[i];
            residual[i] -= length * product[i];
        }
        precondition();
        const double next = dot(residual, scaled);
        for (std::size_t i = 0; i < n; ++i)
            direction[i] = scaled[i] + next / strength * direction[i];
        strength = next;
    }
}

}  // namespace

cv::Mat solved(const cv::Mat& colours, const cv::Mat& known, const cv::Mat& start,
               const cv::Mat& weight, const cv::Mat& pull) {
    const System system(colours, known);
    cv::Mat result = start.clone();
    if (system.count() == 0) return result;
    std::vector<double> fixed(system.gridSize());
    std::vector<double> weights;
    std::vector<double> right;
    std::vector<double> x;
    for (int y = 0; y < known.rows; ++y) {
        for (int c = 0; c < known.cols; ++c) {
            if (known.at<unsigned char>(y, c) != 0) {
                fixed[system.cell(c, y)] = start.at<float>(y, c);
                continue;
            }
            weights.push_back(weight.at<float>(y, c));
            right.push_back(pull.at<float>(y, c));
            x.push_back(start.at<float>(y, c));
        }
    }
    for (std::size_t i = 0; i < right.size(); ++i) right[i] -= system.product(i, fixed);
    solve(system, weights, right, x);
    std::size_t i = 0;
    for (int y = 0; y < known.rows; ++y)
        for (int c = 0; c < known.cols; ++c)
            if (known.at<unsigned char>(y, c) == 0)
                result.at<float>(y, c) = static_cast<float>(x[i++]);
    return result;
}

}  // namespace morva::ClosedForm
