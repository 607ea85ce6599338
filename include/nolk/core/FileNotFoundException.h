/** @file
 * A file that isn't there.
 */
#ifndef NOLK_CORE_FILE_NOT_FOUND_EXCEPTION_H
#define NOLK_CORE_FILE_NOT_FOUND_EXCEPTION_H

#include <nolk/core/Export.h>
#include <nolk/core/FileException.h>

#include <string>

namespace nolk {

/**
 * A file isn't there.
 *
 * Keeps the file's name: to make, copy or read it takes memory, and std::bad_alloc is thrown if
 * there is none.
 */
class NOLK_API FileNotFoundException : public FileException {
public:
    /**
     * Text "File <fileName> not found", without a key in front; empty if it can't be built.
     * @throws std::bad_alloc if there is no memory to keep the name
     */
    FileNotFoundException(const ExceptionInfo& info, const std::string& fileName);
    FileNotFoundException(const FileNotFoundException& other) = default;
    FileNotFoundException& operator=(const FileNotFoundException& other) = default;
    ~FileNotFoundException() override;

    /** The name of the file. */
    std::string fileName() const { return fileName_; }

    void raise() const override;
    Exception* clone() const override;

private:
    std::string fileName_;
};

}  // namespace nolk

#endif
