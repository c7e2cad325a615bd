#pragma once

#include "LateBound.h"

/// "ORVClassTpl.DataSrv": describes one class type to the control, here receipts with a date, a customer, an amount
/// and a state.
/// A real host reads all this from its own metadata.
class DataService final : public LateBound {
  public:
    DataService();

  private:
    Variant answer(const Call& call) override;

    LONG classTypeId_ = 0;
    // Made once: the control marks the records that it reads.
    ComPtr<IDispatch> classType_;
    ComPtr<IDispatch> pages_;
    ComPtr<IDispatch> fields_;
    ComPtr<IDispatch> selectList_;
};
