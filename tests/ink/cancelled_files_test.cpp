// A thread that is cancelled while it writes a file leaves no file behind, and is never cancelled inside a destructor,
// which would terminate the process.
#include "privatefile.h"
#include "replacedfile.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <functional>
#include <future>
#include <pthread.h>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

namespace {

const QByteArray kBytes(200000, 'b'); // more than is collected before it is written

/// QPainter writes in its destructor.
template <class Call>
class AtItsEnd
{
public:
    explicit AtItsEnd(Call call)
        : m_call(call)
    {
    }
    ~AtItsEnd() { m_call(); }
    AtItsEnd(const AtItsEnd &) = delete;
    AtItsEnd &operator=(const AtItsEnd &) = delete;

private:
    Call m_call;
};

void *run(void *work)
{
    (*static_cast<const std::function<void()> *>(work))();
    pthread_testcancel();
    return nullptr;
}

pthread_t begun(const std::function<void()> &work)
{
    pthread_t thread{};
    EXPECT_EQ(pthread_create(&thread, nullptr, run, const_cast<std::function<void()> *>(&work)), 0);
    return thread;
}

/// Whether the thread ended because it had been cancelled.
bool endsCancelled(pthread_t thread)
{
    void *result = nullptr;
    EXPECT_EQ(pthread_join(thread, &result), 0);
    return result == PTHREAD_CANCELED;
}

bool isCancelled(const std::function<void()> &work)
{
    return endsCancelled(begun(work));
}

void cancelThisThread()
{
    pthread_cancel(pthread_self());
}

class CancelledFiles : public testing::Test
{
protected:
    QString path() const { return m_directory.filePath("file"); }
    QByteArray pathBytes() const { return QFile::encodeName(path()); }
    std::string plainPath() const { return path().toStdString(); }
    bool leftNothing() const { return std::filesystem::is_empty(m_directory.path().toStdString()); }

private:
    QTemporaryDir m_directory;
};

} // namespace

TEST_F(CancelledFiles, AreGivenUpByTheirDestructor)
{
    EXPECT_TRUE(isCancelled([&] {
        const ReplacedFile file(path());
        cancelThisThread();
    }));
    EXPECT_TRUE(isCancelled([&] {
        const PrivateFile file(pathBytes().constData());
        cancelThisThread();
    }));
    EXPECT_TRUE(leftNothing());
}

TEST_F(CancelledFiles, TakeWhatADestructorWrites)
{
    EXPECT_TRUE(isCancelled([&] {
        ReplacedFile file(path());
        const AtItsEnd painter([&] { file.write(kBytes); });
        cancelThisThread();
    }));
    EXPECT_TRUE(isCancelled([&] {
        PrivateFile file(pathBytes().constData());
        const AtItsEnd painter([&] { file.device().write(kBytes); });
        cancelThisThread();
    }));
    EXPECT_TRUE(leftNothing());
}

TEST_F(CancelledFiles, AreNotLeftBehindWhenTheyAreBegun)
{
    EXPECT_TRUE(isCancelled([&] {
        cancelThisThread();
        const ReplacedFile file(path());
    }));
    EXPECT_TRUE(isCancelled([&] {
        cancelThisThread();
        const PrivateFile file(pathBytes().constData());
    }));
    EXPECT_TRUE(leftNothing());
}

// One with a second name is written in place.
TEST_F(CancelledFiles, AreWholeWhereTheirPlaceIsKept)
{
    std::ofstream(plainPath()) << "earlier";
    ASSERT_EQ(link(plainPath().c_str(), (plainPath() + "2").c_str()), 0);
    bool saved = false;
    EXPECT_TRUE(isCancelled([&] {
        ReplacedFile file(path());
        file.write(kBytes);
        cancelThisThread();
        saved = file.commit();
    }));
    EXPECT_TRUE(saved);
    QFile written(path());
    ASSERT_TRUE(written.open(QIODevice::ReadOnly));
    EXPECT_EQ(written.readAll(), kBytes);
}

TEST_F(CancelledFiles, DoNotWaitForTheReaderOfAPipe)
{
    ASSERT_EQ(mkfifo(plainPath().c_str(), 0600), 0);
    std::promise<void> started;
    const std::function<void()> save = [&] {
        started.set_value();
        ReplacedFile file(path());
        file.write(kBytes);
        file.commit();
    };
    const pthread_t thread = begun(save);
    started.get_future().wait();
    std::this_thread::sleep_for(std::chrono::milliseconds(20)); // usually enough for it to wait in there
    pthread_cancel(thread);
    EXPECT_TRUE(endsCancelled(thread));
}

TEST_F(CancelledFiles, AreReadFromAPipeAsAWholeOrNotAtAll)
{
    ASSERT_EQ(mkfifo(plainPath().c_str(), 0600), 0);
    const std::function<void()> save = [&] {
        ReplacedFile file(path());
        file.write(kBytes);
        file.commit();
    };
    const pthread_t thread = begun(save);
    const int reader = open(plainPath().c_str(), O_RDONLY);
    QByteArray read(1, '\0');
    ASSERT_EQ(::read(reader, read.data(), 1), 1); // more than a pipe holds is still to come
    pthread_cancel(thread);
    char piece[4096];
    for (ssize_t size = 0; (size = ::read(reader, piece, sizeof piece)) > 0;)
        read.append(piece, static_cast<int>(size));
    close(reader);
    EXPECT_TRUE(endsCancelled(thread));
    EXPECT_EQ(read.size(), kBytes.size());
    EXPECT_EQ(read, kBytes);
}
