// A thread that is cancelled while it writes a file leaves no file behind, and is never cancelled inside a destructor,
// which would terminate the process.
#include "privatefile.h"
#include "replacedfile.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <pthread.h>

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

/// Whether a thread with this work ended because it had been cancelled.
bool isCancelled(const std::function<void()> &work)
{
    pthread_t thread;
    void *result = nullptr;
    EXPECT_EQ(pthread_create(&thread, nullptr, run, const_cast<std::function<void()> *>(&work)), 0);
    EXPECT_EQ(pthread_join(thread, &result), 0);
    return result == PTHREAD_CANCELED;
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
