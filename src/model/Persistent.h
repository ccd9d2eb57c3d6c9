#pragma once

#include <memory>
#include <string_view>

namespace kestrabel {

class CPersistent;

/// What is known about a class at run time: its name and the schema number of the form in which it is stored,
/// both fixed by every project file ever written, and how to make an empty object of it.
struct CClassRecord
{
    std::string_view strName;
    int nSchema;
    std::unique_ptr<CPersistent> (*pCreate)();
};

/// Base of every class that has a stored form.
class CPersistent
{
public:
    virtual ~CPersistent() = default;
    virtual const CClassRecord& ClassRecord() const = 0;

protected:
    CPersistent() = default;
    CPersistent(const CPersistent&) = default;
    CPersistent& operator=(const CPersistent&) = default;
};

} // namespace kestrabel
