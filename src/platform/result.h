#pragma once

#include <QString>

#include <cstdint>
#include <utility>
#include <variant>

namespace quillon {

/// Why something did not come out as it should: the kind that a caller can act on, and one readable sentence.
struct Error
{
    enum class Kind : std::uint8_t
    {
        Missing,        ///< Nothing is there.
        Unreadable,     ///< Something is there, but it could not be read, opened or listed.
        Unintelligible, ///< It was read, and is not what it should be.
        Refused,        ///< It may not be done: a name is taken or cannot be used, a rule forbids it.
        NotDone,        ///< The system failed at it; what was there before is there still.
        NotYetSafe,     ///< It is done and can be seen, but a crash of the machine could still undo it.
    };

    Kind kind = Kind::NotDone;
    QString path = {};   ///< What it is about; empty where that is no file or folder.
    QString reason = {}; ///< The step that failed and the system's reason, for the author to read.
};

/**
 * A value, or the error that stands in its place; used as std::expected of later C++ is.
 *
 *     const Result<QByteArray> bytes = readFile(path);
 *     if (!bytes)
 *         return bytes.error();
 *     use(*bytes);
 *
 * Taking the value of an error, or the error of a value, is a programming fault.
 */
template<typename T = void>
class [[nodiscard]] Result
{
public:
    Result(T value) : m_content(std::in_place_index<0>, std::move(value)) {}     // NOLINT(*-explicit-*)
    Result(Error error) : m_content(std::in_place_index<1>, std::move(error)) {} // NOLINT(*-explicit-*)

    explicit operator bool() const { return m_content.index() == 0; }
    T &operator*() & { return *std::get_if<0>(&m_content); }
    const T &operator*() const & { return *std::get_if<0>(&m_content); }
    T &&operator*() && { return std::move(*std::get_if<0>(&m_content)); }
    T *operator->() { return std::get_if<0>(&m_content); }
    const T *operator->() const { return std::get_if<0>(&m_content); }
    [[nodiscard]] const Error &error() const { return *std::get_if<1>(&m_content); }
    /// Whether this is an error of @p kind.
    [[nodiscard]] bool isError(Error::Kind kind) const { return !*this && error().kind == kind; }
    /// The value, or @p instead of it: only where an error and that value mean the same to whoever asks.
    [[nodiscard]] T valueOr(T instead) const { return *this ? **this : std::move(instead); }
    /// Whether there is a value, and it is @p value.
    friend bool operator==(const Result &result, const T &value) { return result && *result == value; }

private:
    std::variant<T, Error> m_content;
};

/// What came of something that gives no value; true when all of it is done, and safe where that was promised.
template<>
class [[nodiscard]] Result<void>
{
public:
    Result() = default;
    Result(Error error) : m_error(std::move(error)), m_isOk(false) {} // NOLINT(*-explicit-*)

    explicit operator bool() const { return m_isOk; }
    [[nodiscard]] const Error &error() const { return m_error; }
    [[nodiscard]] bool isError(Error::Kind kind) const { return !m_isOk && m_error.kind == kind; }
    /// Whether it was done, be it safe on the disk or not.
    [[nodiscard]] bool isDone() const { return m_isOk || m_error.kind == Error::Kind::NotYetSafe; }

private:
    Error m_error;
    bool m_isOk = true;
};

} // namespace quillon
