#pragma once

#include "Com.h"

/// Who is logged on, as "ORVPropsMgr.ShareProps" tells it.
constexpr const wchar_t* userProperties = L"UserID=1;UserName=Sample user;Language=CHS";
constexpr LONG userId = 1;
constexpr const wchar_t* userName = L"Sample user";

/// The components that keep the schemes: one object answers for all of them. Here they live in memory, as long as the
/// DLL is loaded; a real host has a table.
ComPtr<IDispatch> makeSchemeStore();
