#include "filters/kernels/light_sums.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <utility>
#include <vector>

#include "filters/kernels/fourier_transform.h"
#include "filters/kernels/glow_falloff.h"
#include "filters/kernels/light_source.h"
#include "filters/kernels/scratch.h"

namespace orvane {
namespace {

/// Complex numbers, with their parts apart.
struct ComplexScratch {
    explicit ComplexScratch(std::size_t count) : real(count), imaginary(count) {}
    Scratch<double> real, imaginary;
};

/// Transforms rows, then columns, multiplies, and goes back the same way. Lights are real numbers, so two
/// rows make one of complex numbers, and one half of the spectrum's columns tells the other. Weights are
/// symmetric too, so their spectrum is real, and two of anything fit into one transform.
class LightConvolution {
 public:
    LightConvolution(PixelView source, int level, const GlowFalloff& falloff, std::size_t spectrumBytes)
        : source_(source),
          level_(level),
          brightest_(257.0 / (3.0 * level)),
          falloff_(falloff),
          across_(FourierTransform::lengthFor(std::size_t(source.width) + std::size_t(falloff.reachX()))),
          down_(FourierTransform::lengthFor(std::size_t(source.height) + std::size_t(falloff.reachY()))),
          spectrum_(halfSpectrum(across_.length())),
          room_(roomForColumns(spectrumBytes)),
          row_(across_.length()),
          lights_(room_ * pairedRows(source.height)),
          weights_(room_ * pairedRows(falloff.reachY() + 1)),
          columns_(columnStride() * columnsAtOnce()),
          kernel_(down_.length()),
          sums_(source.pixelCount()) {}

    LightSums run() {
        for (first_ = 0; first_ < spectrum_.size(); first_ += room_) {
            count_ = std::min(room_, spectrum_.size() - first_);
            takeLights();
            takeWeights();
            convolveColumns();
            addSums();
        }
        // The errors of the lights' and the weights' spectra and of the way back are each bounded by the
        // errors of the stages times the product of the norms, the last one twice as rows travel in pairs.
        const int stages = across_.stages() + down_.stages() + 2;
        const double norms = std::sqrt(lightSquares_) * std::sqrt(weightSquares_);
        return {std::move(sums_), 8 * stages * FourierTransform::kErrorPerStage * norms};
    }

 private:
    /// Opposite frequencies, as positions in a row.
    struct Frequency {
        std::uint32_t place, opposite;
    };
    static std::vector<Frequency> halfSpectrum(std::size_t length) {
        std::vector<Frequency> result;
        result.reserve(length / 2 + 1);
        for (std::size_t place = 0; place < length; ++place) {
            const std::size_t opposite = FourierTransform::mirrored(place);
            if (place <= opposite) result.push_back({std::uint32_t(place), std::uint32_t(opposite)});
        }
        return result;
    }

    [[nodiscard]] static std::size_t pairedRows(int rows) { return (std::size_t(rows) + 1) / 2 * 2; }
    /// The columns of the spectrum that are at hand at once.
    [[nodiscard]] std::size_t roomForColumns(std::size_t spectrumBytes) const {
        const std::size_t column =
            (2 * pairedRows(source_.height) + pairedRows(falloff_.reachY() + 1)) * sizeof(double);
        return std::clamp<std::size_t>(spectrumBytes / column, 1, spectrum_.size());
    }
    /// A cache line of each row, if so many columns fit into the caches.
    [[nodiscard]] std::size_t columnsAtOnce() const { return down_.length() <= 65536 ? 8 : 1; }
    /// Powers of two would meet in the same few lines of the caches.
    [[nodiscard]] std::size_t columnStride() const { return down_.length() + 8; }

    void takeLights() {
        for (int y = 0; y < source_.height; y += 2) {
            fillLights(y, row_.real.data());
            fillLights(y + 1, row_.imaginary.data());
            across_.transform(row_.real.data(), row_.imaginary.data());
            const std::size_t even = std::size_t(y) * room_, odd = even + room_;
            for (std::size_t c = 0; c < count_; ++c) {
                const auto [place, opposite] = spectrum_[first_ + c];
                const double real = row_.real[place], imaginary = row_.imaginary[place];
                const double realOpposite = row_.real[opposite];
                const double imaginaryOpposite = row_.imaginary[opposite];
                lights_.real[even + c] = 0.5 * (real + realOpposite);
                lights_.imaginary[even + c] = 0.5 * (imaginary - imaginaryOpposite);
                lights_.real[odd + c] = 0.5 * (imaginary + imaginaryOpposite);
                lights_.imaginary[odd + c] = 0.5 * (realOpposite - real);
            }
        }
    }

    void fillLights(int y, double* row) {
        std::fill_n(row, across_.length(), 0.0);
        if (y >= source_.height) return;
        const Argb* const pixels = source_.row(y);
        double squares = 0.0;
        for (int x = 0; x < source_.width; ++x) {
            row[x] = lightOf(pixels[x], level_);
            squares += row[x] * row[x];
        }
        if (first_ == 0) lightSquares_ += squares;
    }

    void takeWeights() {
        for (int dy = 0; dy <= falloff_.reachY(); dy += 2) {
            fillWeights(dy, row_.real.data());
            fillWeights(dy + 1, row_.imaginary.data());
            across_.transform(row_.real.data(), row_.imaginary.data());
            const std::size_t even = std::size_t(dy) * room_, odd = even + room_;
            for (std::size_t c = 0; c < count_; ++c) {
                const std::size_t place = spectrum_[first_ + c].place;
                weights_[even + c] = row_.real[place];
                weights_[odd + c] = row_.imaginary[place];
            }
        }
    }

    void fillWeights(int dy, double* row) {
        std::fill_n(row, across_.length(), 0.0);
        if (dy > falloff_.reachY()) return;
        const std::uint32_t* const distances = falloff_.distances(dy);
        double squares = 0.0;
        for (int dx = 0; dx <= falloff_.rowReach(dy); ++dx) {
            const double weight = std::min(falloff_.weight(distances[dx]), brightest_);
            row[dx] = weight;
            if (dx > 0) row[across_.length() - std::size_t(dx)] = weight;
            squares += (dx > 0 ? 2 : 1) * (weight * weight);
        }
        if (first_ == 0) weightSquares_ += (dy > 0 ? 2 : 1) * squares;
    }

    void convolveColumns() {
        for (std::size_t column = 0; column < count_; column += columnsAtOnce()) {
            const std::size_t columns = std::min(columnsAtOnce(), count_ - column);
            std::fill_n(columns_.real.data(), columns * columnStride(), 0.0);
            std::fill_n(columns_.imaginary.data(), columns * columnStride(), 0.0);
            for (std::size_t y = 0; y < std::size_t(source_.height); ++y) {
                for (std::size_t c = 0; c < columns; ++c) {
                    columns_.real[c * columnStride() + y] = lights_.real[y * room_ + column + c];
                    columns_.imaginary[c * columnStride() + y] = lights_.imaginary[y * room_ + column + c];
                }
            }
            for (std::size_t c = 0; c < columns; c += 2) {
                const bool isPair = c + 1 < columns;
                transformWeights(column + c, isPair);
                convolveColumn(c, kernel_.real.data());
                if (isPair) convolveColumn(c + 1, kernel_.imaginary.data());
            }
            for (std::size_t y = 0; y < std::size_t(source_.height); ++y) {
                for (std::size_t c = 0; c < columns; ++c) {
                    lights_.real[y * room_ + column + c] = columns_.real[c * columnStride() + y];
                    lights_.imaginary[y * room_ + column + c] = columns_.imaginary[c * columnStride() + y];
                }
            }
        }
    }

    /// The spectra of the weights of one or two columns.
    void transformWeights(std::size_t column, bool isPair) {
        std::fill_n(kernel_.real.data(), down_.length(), 0.0);
        std::fill_n(kernel_.imaginary.data(), down_.length(), 0.0);
        const std::size_t reach = std::size_t(falloff_.reachY());
        for (std::size_t dy = 0; dy <= reach; ++dy) {
            const std::size_t mirrored = dy == 0 ? 0 : down_.length() - dy;
            const double* const weights = &weights_[dy * room_ + column];
            kernel_.real[dy] = kernel_.real[mirrored] = weights[0];
            if (isPair) kernel_.imaginary[dy] = kernel_.imaginary[mirrored] = weights[1];
        }
        down_.transform(kernel_.real.data(), kernel_.imaginary.data());
    }

    void convolveColumn(std::size_t column, const double* kernel) {
        double* const real = &columns_.real[column * columnStride()];
        double* const imaginary = &columns_.imaginary[column * columnStride()];
        down_.transform(real, imaginary);
        const double scale = 1.0 / (double(across_.length()) * double(down_.length()));
        for (std::size_t i = 0; i < down_.length(); ++i) {
            real[i] *= kernel[i] * scale;
            imaginary[i] *= kernel[i] * scale;
        }
        down_.restore(real, imaginary);
    }

    void addSums() {
        for (int y = 0; y < source_.height; y += 2) {
            if (count_ < spectrum_.size()) {
                std::fill_n(row_.real.data(), across_.length(), 0.0);
                std::fill_n(row_.imaginary.data(), across_.length(), 0.0);
            }
            const std::size_t even = std::size_t(y) * room_, odd = even + room_;
            for (std::size_t c = 0; c < count_; ++c) {
                const auto [place, opposite] = spectrum_[first_ + c];
                const double real = lights_.real[even + c], imaginary = lights_.imaginary[even + c];
                const double realOdd = lights_.real[odd + c], imaginaryOdd = lights_.imaginary[odd + c];
                row_.real[opposite] = real + imaginaryOdd;
                row_.imaginary[opposite] = realOdd - imaginary;
                row_.real[place] = real - imaginaryOdd;
                row_.imaginary[place] = realOdd + imaginary;
            }
            across_.restore(row_.real.data(), row_.imaginary.data());
            addRow(y, row_.real.data());
            if (y + 1 < source_.height) addRow(y + 1, row_.imaginary.data());
        }
    }

    void addRow(int y, const double* row) {
        double* const sums = &sums_[std::size_t(y) * std::size_t(source_.width)];
        for (int x = 0; x < source_.width; ++x) sums[x] += row[x];
    }

    PixelView source_;
    int level_;
    double brightest_;  // what the dimmest source needs to make all white
    const GlowFalloff& falloff_;
    FourierTransform across_, down_;
    std::vector<Frequency> spectrum_;
    std::size_t room_, first_ = 0, count_ = 0;  // columns of the spectrum at hand
    ComplexScratch row_;
    ComplexScratch lights_;    // spectra of rows, and of sums; only the columns at hand
    Scratch<double> weights_;  // the same of the weights of rows dy = 0, 1, ...
    ComplexScratch columns_, kernel_;
    std::vector<double> sums_;
    double lightSquares_ = 0.0, weightSquares_ = 0.0;
};

}  // namespace

LightSums estimateLight(PixelView source, int level, const GlowFalloff& falloff, std::size_t spectrumBytes) {
    return LightConvolution(source, level, falloff, spectrumBytes).run();
}

}  // namespace orvane
