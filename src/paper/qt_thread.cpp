#ifdef CUVEXA_WITH_QT
#include "paper/qt_thread.h"

#include <QGuiApplication>
#include <clocale>
#include <condition_variable>
#include <deque>
#include <future>
#include <mutex>
#include <thread>

namespace cuvexa::paper {

namespace {

/// The toolkit asks that all of it stays in the thread in which it began, and serves no two drawings at once.
class Qt_thread {
public:
    Qt_thread() {
        std::thread([this] { live(); }).detach();
    }

    void run(std::packaged_task<void()> work) {
        {
            const std::lock_guard lock(mutex_);
            waiting_.push_back(std::move(work));
        }
        came_.notify_one();
    }

private:
    void live() {
        // Fonts are measured without a display; what the library remarks about that is nobody's matter.
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
        char program[] = "cuvexa", option[] = "-platform", platform[] = "offscreen";
        char* words[] = {program, option, platform, nullptr};
        int count = 3;
        const QGuiApplication fonts(count, words);
        std::setlocale(LC_ALL, "C");  // the application took that of the environment, with its decimal comma
        for (;;) next()();
    }

    std::packaged_task<void()> next() {
        std::unique_lock lock(mutex_);
        came_.wait(lock, [this] { return !waiting_.empty(); });
        std::packaged_task<void()> work = std::move(waiting_.front());
        waiting_.pop_front();
        return work;
    }

    std::mutex mutex_;
    std::condition_variable came_;
    std::deque<std::packaged_task<void()>> waiting_;
};

}  // namespace

void in_qt_thread(const std::function<void()>& work) {
    // Never destroyed: the library's own tables are gone before a static of ours.
    static Qt_thread& thread = *new Qt_thread;
    std::packaged_task<void()> task(work);
    std::future<void> done = task.get_future();
    thread.run(std::move(task));
    done.get();
}

}  // namespace cuvexa::paper
#endif
