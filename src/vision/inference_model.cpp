// SPDX-License-Identifier: GPL-3.0-or-later
#include "vision/inference_model.h"

#include <algorithm>
#include <chrono>
#include <mutex>
#include <stdexcept>
#include <string>
#include <thread>

#include <openvino/openvino.hpp>
#include <openvino/opsets/opset13.hpp>

namespace morva {

struct InferenceEngine::Runtime {
    ov::Core core;
};

struct InferenceModel::Request {
    ov::InferRequest request;
};

struct InferenceModel::Compiled {
    std::string name;
    ov::CompiledModel model;
    std::shared_ptr<InferenceTimer> timer;
    std::mutex lock;
    std::vector<std::unique_ptr<Request>> free;
};

namespace {

/// One stream of one thread for every core, so that as many photos are analysed at once as there
/// are workers and none of them waits for another one's threads.
ov::AnyMap oneThreadAStream() {
    const int cores = static_cast<int>(std::max(1U, std::thread::hardware_concurrency()));
    return {ov::num_streams(cores), ov::inference_num_threads(cores),
            ov::hint::enable_cpu_pinning(false), ov::hint::inference_precision(ov::element::f32)};
}

ov::PartialShape shapeOf(const std::vector<std::size_t>& sizes) {
    return ov::PartialShape(ov::Shape(sizes.begin(), sizes.end()));
}

ov::Output<ov::Node> innerLayer(const ov::Model& model, const InnerLayer& wanted) {
    std::size_t index = 0;
    for (const auto& node : model.get_ordered_ops()) {
        if (!ov::is_type<ov::opset13::Add>(node)) continue;
        if (node->get_output_partial_shape(0) != shapeOf(wanted.shape)) continue;
        if (index++ == wanted.index) return node->output(0);
    }
    throw std::runtime_error("an inner layer is missing");
}

std::shared_ptr<ov::Model> averagesOf(const ov::Model& model, std::span<const InnerLayer> layers) {
    const auto rowsAndColumns =
        ov::opset13::Constant::create(ov::element::i64, ov::Shape{2}, {2, 3});
    ov::OutputVector averages;
    for (const InnerLayer& layer : layers) {
        averages.push_back(std::make_shared<ov::opset13::ReduceMean>(innerLayer(model, layer),
                                                                     rowsAndColumns, false));
    }
    const auto joined = std::make_shared<ov::opset13::Concat>(averages, 1);
    return std::make_shared<ov::Model>(ov::OutputVector{joined}, model.get_parameters());
}

}  // namespace

InferenceEngine::InferenceEngine(std::unique_ptr<Runtime> runtime) : runtime_(std::move(runtime)) {}
InferenceEngine::~InferenceEngine() = default;

Result<std::shared_ptr<InferenceEngine>> InferenceEngine::create(
    const std::filesystem::path& cache) {
    try {
        auto runtime = std::make_unique<Runtime>();
        std::filesystem::create_directories(cache);
        runtime->core.set_property(ov::cache_dir(cache.string()));
        return std::make_shared<InferenceEngine>(std::move(runtime));
    } catch (const std::exception& error) {
        return failure(std::string("The inference runtime could not be started: ") + error.what());
    }
}

InferenceModel::InferenceModel(std::unique_ptr<Compiled> compiled)
    : compiled_(std::move(compiled)) {}
InferenceModel::~InferenceModel() = default;

template <class Compile>
Result<std::shared_ptr<const InferenceModel>> InferenceModel::compiled(
    InferenceEngine& engine, const std::filesystem::path& file, Compile compile) {
    try {
        auto content = std::make_unique<Compiled>();
        content->name = file.filename().string();
        content->timer = engine.timer();
        content->model = compile(engine.runtime().core);
        return std::make_shared<const InferenceModel>(std::move(content));
    } catch (const std::exception& error) {
        return failure("The model " + file.filename().string() +
                       " could not be loaded: " + error.what());
    }
}

Result<std::shared_ptr<const InferenceModel>> InferenceModel::load(
    InferenceEngine& engine, const std::filesystem::path& file,
    const std::vector<std::size_t>& inputShape) {
    return compiled(engine, file, [&](ov::Core& core) {
        // By its name the cache finds it without reading the file, half of the time of loading.
        ov::CompiledModel model = core.compile_model(file.string(), "CPU", oneThreadAStream());
        if (model.input().get_partial_shape() != shapeOf(inputShape))
            throw std::runtime_error("it takes pictures of another size");
        return model;
    });
}

Result<std::shared_ptr<const InferenceModel>> InferenceModel::loadReshaped(
    InferenceEngine& engine, const std::filesystem::path& file,
    const std::vector<std::size_t>& inputShape) {
    return compiled(engine, file, [&](ov::Core& core) {
        const std::shared_ptr<ov::Model> model = core.read_model(file);
        model->reshape(shapeOf(inputShape));
        return core.compile_model(model, "CPU", oneThreadAStream());
    });
}

Result<std::shared_ptr<const InferenceModel>> InferenceModel::loadInner(
    InferenceEngine& engine, const std::filesystem::path& file,
    std::span<const InnerLayer> layers) {
    return compiled(engine, file, [&](ov::Core& core) {
        return core.compile_model(averagesOf(*core.read_model(file), layers), "CPU",
                                  oneThreadAStream());
    });
}

Result<InferenceModel::Session> InferenceModel::session() const {
    {
        const std::scoped_lock hold(compiled_->lock);
        if (!compiled_->free.empty()) {
            auto request = std::move(compiled_->free.back());
            compiled_->free.pop_back();
            return Session(*this, std::move(request));
        }
    }
    try {
        auto request = std::make_unique<Request>();
        request->request = compiled_->model.create_infer_request();
        return Session(*this, std::move(request));
    } catch (const std::exception& error) {
        return failure("The model " + compiled_->name + " could not be run: " + error.what());
    }
}

InferenceModel::Session::Session(const InferenceModel& model, std::unique_ptr<Request> request)
    : model_(&model), request_(std::move(request)) {}

InferenceModel::Session::Session(Session&&) noexcept = default;

InferenceModel::Session::~Session() {
    if (!request_) return;
    const std::scoped_lock hold(model_->compiled_->lock);
    model_->compiled_->free.push_back(std::move(request_));
}

std::span<float> InferenceModel::Session::input() {
    ov::Tensor tensor = request_->request.get_input_tensor();
    return {tensor.data<float>(), tensor.get_size()};
}

Result<void> InferenceModel::Session::infer() {
    try {
        const auto start = std::chrono::steady_clock::now();
        request_->request.infer();
        model_->compiled_->timer->nanoseconds += (std::chrono::steady_clock::now() - start).count();
        return {};
    } catch (const std::exception& error) {
        return failure("The model " + model_->compiled_->name +
                       " could not be run: " + error.what());
    }
}

std::span<const float> InferenceModel::Session::output(std::size_t elements) const {
    for (std::size_t i = 0; i < model_->compiled_->model.outputs().size(); ++i) {
        const ov::Tensor tensor = request_->request.get_output_tensor(i);
        if (tensor.get_size() == elements) return {tensor.data<float>(), elements};
    }
    return {};
}

}  // namespace morva
