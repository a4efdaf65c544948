// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

#include <optional>
#include <utility>

// The steps between the file operations and the operating system. A result of 0 is success, any
// other is the errno of the call that failed. Calls that a signal interrupted are made again.
namespace platform::system {

// An open file, closed with its owner.
class Descriptor {
public:
    explicit Descriptor(int number = -1)
        : m_number(number)
    {
    }
    ~Descriptor() { static_cast<void>(close()); }
    Descriptor(Descriptor&& other) noexcept
        : m_number(other.release())
    {
    }
    Descriptor& operator=(Descriptor&& other) noexcept;

    [[nodiscard]] int number() const { return m_number; }
    [[nodiscard]] bool isOpen() const { return m_number >= 0; }
    // Reports what the file system found out only now, such as a quota that a write went over.
    [[nodiscard]] int close();
    [[nodiscard]] int release() { return std::exchange(m_number, -1); }

private:
    int m_number;
};

// Less what the user's mask takes away.
inline constexpr unsigned newFileMode = 0666;
inline constexpr unsigned newFolderMode = 0777;

// The path as the system takes it; none when it is empty or holds a NUL, which would silently end
// it.
[[nodiscard]] std::optional<QByteArray> nativePath(const QString& path);
[[nodiscard]] QString pathFromNative(const QByteArray& path);

// A hidden name in the same folder that nothing else has, for what is not finished yet.
[[nodiscard]] QByteArray privateSibling(const QByteArray& path);

[[nodiscard]] Descriptor open(const QByteArray& path, int flags, unsigned mode = 0);
[[nodiscard]] int writeAll(int descriptor, QByteArrayView bytes);
// All bytes from the current place on, into bytes. sizeHint: how many there probably are.
[[nodiscard]] int readAll(int descriptor, qint64 sizeHint, QByteArray& bytes);
// All bytes from one file's current place to another's, inside the file system where it can.
[[nodiscard]] int copyAll(int from, int to);

// Creates or overwrites a file in place; one that could not be written whole is removed again.
[[nodiscard]] int writeInPlace(const QByteArray& path, QByteArrayView bytes);
// The same with another file's bytes. isAboutSource says whose failure it was.
[[nodiscard]] int copyInPlace(const QByteArray& from, const QByteArray& to, bool& isAboutSource);

// EEXIST when something exists at the target.
[[nodiscard]] int renameWithoutReplacing(const QByteArray& from, const QByteArray& to);
// Puts a finished item in the place of whatever is there, in one step where the file system can;
// the old item is then removed.
[[nodiscard]] int replaceItem(const QByteArray& finished, const QByteArray& target);

} // namespace platform::system
