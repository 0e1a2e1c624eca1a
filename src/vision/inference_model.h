// SPDX-License-Identifier: GPL-3.0-or-later
// One neural network, compiled once and shared by all workers; every run borrows one of its
// sessions. The only place that knows the inference runtime. Never decides anything about
// photographs.
#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <span>
#include <vector>

#include "base/result.h"

namespace morva {

/// Time spent inside the models, all workers together: what an analysis cannot do without.
struct InferenceTimer {
    std::atomic<std::int64_t> nanoseconds = 0;

    double seconds() const { return static_cast<double>(nanoseconds) * 1e-9; }
};

/// The runtime with its processor plug-in. Made once for a set of models.
class InferenceEngine {
public:
    /// Compiled models are kept below `cache`, which is created when missing. Fails when the
    /// runtime is not usable.
    static Result<std::shared_ptr<InferenceEngine>> create(const std::filesystem::path& cache);

    struct Runtime;
    explicit InferenceEngine(std::unique_ptr<Runtime> runtime);
    ~InferenceEngine();
    Runtime& runtime() { return *runtime_; }
    const std::shared_ptr<InferenceTimer>& timer() const { return timer_; }

private:
    std::unique_ptr<Runtime> runtime_;
    std::shared_ptr<InferenceTimer> timer_ = std::make_shared<InferenceTimer>();
};

/// An inner layer of a network whose names are not lasting: of the additions whose result has this
/// shape (batch, channels, rows, columns), the one at `index` in the order of computation.
struct InnerLayer {
    std::vector<std::size_t> shape;
    std::size_t index = 0;
};

class InferenceModel {
    struct Compiled;
    struct Request;

public:
    /// Compiles `file`, which takes inputs of exactly `inputShape`, in 32-bit floats, one thread a
    /// session. Fails with a sentence that names the file. Several may load at once.
    static Result<std::shared_ptr<const InferenceModel>> load(
        InferenceEngine& engine, const std::filesystem::path& file,
        const std::vector<std::size_t>& inputShape);
    /// The same for a file that takes inputs of any size.
    static Result<std::shared_ptr<const InferenceModel>> loadReshaped(
        InferenceEngine& engine, const std::filesystem::path& file,
        const std::vector<std::size_t>& inputShape);
    /// The part of `file` that leads to `layers`; its one output holds each layer's channels,
    /// averaged over the picture, one layer after the other. Fails also when a layer is not there.
    static Result<std::shared_ptr<const InferenceModel>> loadInner(
        InferenceEngine& engine, const std::filesystem::path& file,
        std::span<const InnerLayer> layers);
    explicit InferenceModel(std::unique_ptr<Compiled> compiled);
    ~InferenceModel();

    /// One run of the model: fill `input`, call `infer`, read the outputs. Goes back to the model
    /// when destroyed.
    class Session {
    public:
        Session(Session&&) noexcept;
        ~Session();
        std::span<float> input();
        Result<void> infer();
        /// The output that has this many elements; outputs come in no fixed order. Empty when there
        /// is none.
        std::span<const float> output(std::size_t elements) const;

    private:
        friend class InferenceModel;
        Session(const InferenceModel& model, std::unique_ptr<Request> request);
        const InferenceModel* model_;
        std::unique_ptr<Request> request_;
    };

    Result<Session> session() const;

private:
    /// What `compile` throws becomes the failure.
    template <class Compile>
    static Result<std::shared_ptr<const InferenceModel>> compiled(InferenceEngine& engine,
                                                                  const std::filesystem::path& file,
                                                                  Compile compile);

    std::unique_ptr<Compiled> compiled_;
};

}  // namespace morva
