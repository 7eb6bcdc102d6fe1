#include "pictures/picture_work.h"

#include <utility>

namespace chromalog {

void PictureWork::begin(Job job, std::function<void()> then) {
    cancel();
    wanted_ = true;
    Task task{std::move(job), std::move(then)};
    if (current_)
        next_ = std::move(task);
    else
        start(std::move(task));
}

void PictureWork::cancel() {
    wanted_ = false;
    next_.reset();
    if (current_) current_->stop = true;
}

void PictureWork::start(Task task) {
    const auto course = std::make_shared<Course>();
    current_ = course;
    const auto work = [course, job = std::move(task.job)] {
        try {
            job([&course](double done) {
                course->done = done;
                return !course->stop;
            });
        } catch (...) { // no memory: its result stays what it was
        }
    };
    try {
        worker_->begin(work, [this, course, then = std::move(task.then)] { ended(*course, then); });
    } catch (...) { // it did not begin
        current_ = nullptr;
        wanted_ = false;
        throw;
    }
}

void PictureWork::ended(const Course& course, const std::function<void()>& then) {
    current_ = nullptr;
    if (next_) return start(*std::exchange(next_, std::nullopt));
    if (course.stop) return;
    wanted_ = false;
    then();
}

} // namespace chromalog
