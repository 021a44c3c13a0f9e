// Errand.hpp - work on a thread of its own: values in, a value out.
//
//     Errand<QueueList> looking([](Cancellation& cancellation) { return ...; });
//     ...
//     if (std::optional<QueueList> list = looking.take()) ...
//
// The work gets copies and shares nothing with its owner but the cancellation.  An owner that loses
// interest lets go: the work is cancelled, and its result, should it come, is thrown away.  Plain
// C++.
#pragma once

#include "dialog/background/Cancellation.hpp"

#include <chrono>
#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <utility>

namespace dialog {

// Runs `work` on a thread of its own, or, when none is to be had, before it returns.
void runAside(std::function<void()> work);

// Whether every work given to runAside has ended; waits for that as long as `patience`.
bool allWorkEnded(std::chrono::milliseconds patience);

template <class Result>
class Errand
{
  public:
    Errand() = default; // nothing under way

    // `work` takes a Cancellation& and answers a Result; it must be copyable and throw nothing.
    template <class Work>
    explicit Errand(Work work) : shared_(std::make_shared<Shared>())
    {
        runAside([shared = shared_, work = std::move(work)] {
            Result result = work(shared->cancellation);
            const std::lock_guard lock(shared->mutex);
            shared->result.emplace(std::move(result));
            shared->ended.notify_all();
        });
    }

    ~Errand() { cancel(); }
    Errand(Errand&& other) noexcept = default;
    Errand& operator=(Errand&& other) noexcept
    {
        cancel();
        shared_ = std::move(other.shared_);
        return *this;
    }

    // From the beginning until the result was taken.
    bool underWay() const noexcept { return shared_ != nullptr; }

    void cancel() noexcept
    {
        if (shared_) {
            shared_->cancellation.cancel();
        }
    }

    // The result, once; nothing as long as there is none.  Waits for it as long as `patience`.
    std::optional<Result> take(std::chrono::milliseconds patience = {})
    {
        if (!shared_) {
            return std::nullopt;
        }
        std::unique_lock lock(shared_->mutex);
        if (!shared_->ended.wait_for(lock, patience, [&] { return shared_->result.has_value(); })) {
            return std::nullopt;
        }
        std::optional<Result> result = std::move(shared_->result);
        lock.unlock();
        shared_.reset();
        return result;
    }

  private:
    struct Shared
    {
        Cancellation cancellation;
        std::mutex mutex;
        std::condition_variable ended;
        std::optional<Result> result;
    };

    std::shared_ptr<Shared> shared_;
};

} // namespace dialog
