#pragma once

#include "LateBound.h"

#include <initializer_list>
#include <utility>

// The two containers that records come in. A host has them in its foundation library; the control creates its own when
// "QDX.Dictionary" and "QDX.Collection" are not there.

/// Entries by text keys, in the order in which they were added. The default member reads and writes an entry.
class Dictionary final : public LateBound {
  public:
    Dictionary(std::initializer_list<std::pair<std::wstring, Variant>> entries = {});

  private:
    Variant answer(const Call& call) override;
    Variant* find(const std::wstring& key);
    ComPtr<IDispatch> keys() const;

    std::vector<std::pair<std::wstring, Variant>> entries_;
};

/// Records by their positions from 1. The default member reads one.
class Collection final : public LateBound {
  public:
    Collection(std::vector<ComPtr<IDispatch>> records = {});
    explicit Collection(const std::vector<std::wstring>& texts);

  private:
    Variant answer(const Call& call) override;

    std::vector<Variant> items_;
};

/// A recordset of one row and one column, with the member names of ADO. A real host hands its own recordsets out.
class OneValue final : public LateBound {
  public:
    explicit OneValue(Variant value)
        : LateBound({L"EOF", L"RecordCount", L"Fields", L"MoveNext", L"Value"}), value_(std::move(value)) {}

  private:
    Variant answer(const Call& call) override;

    Variant value_;
    bool atEnd_ = false;
};
