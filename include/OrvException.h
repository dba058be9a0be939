#ifndef ORV_EXCEPTION_H
#define ORV_EXCEPTION_H

// The engine's only failure channel. Every failure throws, by value, a member of
// this family built from a message literal, the path of the throwing source
// (relative to the engine's source root, without extension) and the line.
class OrvException
{
public:
    OrvException();
    OrvException(const char* message, const char* file, int line);
    OrvException(const OrvException& other);
    OrvException& operator=(const OrvException& other);
    virtual ~OrvException();

    // Hook through which a game may print an exception; does nothing here.
    virtual void Report();

    // Keeps a copy of a message built at run time (one naming a file, say) for
    // the life of the process, so that it can serve as an exception's message.
    static const char* KeepMessage(const char* text);

    const char* message;
    const char* file;
    const char* name;
    int line;

protected:
    OrvException(const char* message, const char* file, int line, const char* displayName);
};

// Declares a member of the family: it derives directly from OrvException, adds
// no field and only sets its own display name when built from a message.
#define ORV_DECLARE_EXCEPTION(ClassName)                                        \
    class ClassName : public OrvException                                       \
    {                                                                           \
    public:                                                                     \
        ClassName();                                                            \
        ClassName(const char* message, const char* file, int line);             \
        ClassName(const ClassName& other);                                      \
        ClassName& operator=(const ClassName& other);                           \
        ~ClassName() override;                                                  \
    }

// Throws Type with the message, the given source path and the current line.
#define ORV_THROW(Type, message, file) throw Type((message), (file), __LINE__)

#endif
