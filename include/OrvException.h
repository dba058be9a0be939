#ifndef ORV_EXCEPTION_H
#define ORV_EXCEPTION_H

#include <memory>
#include <string>

/// The engine's only failure channel. Every failure throws, by value, a member of
/// this family built from a message, the path of the throwing source (relative
/// to the engine's source root, without extension) and the line.
///
/// A message is a literal, or a text built at run time (one naming a file,
/// say): the exception then keeps that text itself, shared by its copies, and
/// `message` points into it for as long as one of them lives.
class OrvException
{
public:
    OrvException();
    OrvException(const char* message, const char* file, int line);
    OrvException(const std::string& message, const char* file, int line);
    OrvException(const OrvException& other);
    OrvException& operator=(const OrvException& other);
    virtual ~OrvException();

    /// Hook through which a game may print an exception; does nothing here.
    virtual void Report();

    const char* message;
    const char* file;
    const char* name;
    int line;

protected:
    OrvException(const char* message, const char* file, int line, const char* displayName);
    OrvException(const std::string& message, const char* file, int line, const char* displayName);

private:
    /// The text `message` points into when it was built at run time.
    std::shared_ptr<const std::string> m_text;
};

// Declares a member of the family: it derives directly from OrvException, adds
// no field and only sets its own display name when built from a message.
#define ORV_DECLARE_EXCEPTION(ClassName)                                        \
    class ClassName : public OrvException                                       \
    {                                                                           \
    public:                                                                     \
        ClassName();                                                            \
        ClassName(const char* message, const char* file, int line);             \
        ClassName(const std::string& message, const char* file, int line);      \
        ClassName(const ClassName& other);                                      \
        ClassName& operator=(const ClassName& other);                           \
        ~ClassName() override;                                                  \
    }

// Throws Type with the message, the given source path and the current line.
#define ORV_THROW(Type, message, file) throw Type((message), (file), __LINE__)

#endif
