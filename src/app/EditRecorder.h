#pragma once

#include "app/EditHistory.h"
#include "app/ObjectChanges.h"

#include <memory>
#include <string_view>

namespace kestrabel {

/// Carries out one command so that it can be undone: names the track files it touches, does its changes,
/// finishes, and is kept once the command has shown the outcome. From the first touch on the panes' results
/// are forgotten, since what they refer to goes.
class CEditRecorder
{
public:
    CEditRecorder(CKestroDoc& document, std::string_view strName);

    /// A track file whose points will change. `bModifies` sets its modified mark.
    void Touch(CPerson& person, CSeries& series, bool bModifies = true);
    /// A division whose results are void.
    void VoidDivision(std::string_view strDivision) { m_step.divisions.emplace_back(strDivision); }

    void Do(std::unique_ptr<CChange> pChange);
    template <class T>
    void Set(T& value, T newValue)
    {
        Do(std::make_unique<CValueChange<T>>(value, std::move(newValue)));
    }

    /// Sets the document's modified mark.
    void MarkDocument() { m_step.mark.bSets = true; }

    /// Derives what was touched, unless `bDerive` is off, and voids the results that depended on it.
    void Finish(bool bDerive = true);
    /// Keeps the step, with what is shown now as what a redo shows. The last call.
    void Keep();

private:
    CKestroDoc& m_document;
    SEditStep m_step;
};

} // namespace kestrabel
