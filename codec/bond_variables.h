// Channel bonding as the codec processor's variables hold it: rates, who calls, phone numbers.
//
// A transfer that fails is reported in a box without an owner by each function that it passes
// through, and its code is given back. User-interface thread.
#pragma once

#include <cstdint>

#include "codec/phone_numbers.h"
#include "driver/result_code.h"

// The sets of parameters and of phone numbers, and so the dialogs on them.
enum BondKind : uint32_t {
    kLocalBondParams,
    kRemoteBondParams,
    kCommonBondParams,
    kLocalBondPhones,
    kRemoteBondPhones,
};

// Which of them the functions below, and the dialog that is open, are about.
inline BondKind BondDialogKind = kLocalBondParams;

// Whether bonding is on (not 0), as far as it is known: as it was read, written or chosen last in
// this run.
inline uint8_t BondOnFlag = 0;

// Transfer `count` elements of 1, 2 or 4 bytes of a variable.
ResultCode BondGetVcpValue(const char* name, uint32_t unitSize, int32_t count, void* buffer);
ResultCode BondSetVcpValue(const char* name, uint32_t unitSize, int32_t count, const void* buffer);

// The channel rate (0 for 56K, 1 for 64K) and how many times it is taken; of the local parameters
// also whether this side calls, and whether bonding is on, which others leave alone. Variables go
// one by one, up to the first that fails. Phones' kinds answer VXD_INVALID_PARAMETER unreported.
ResultCode BondGetParams(uint8_t& bcr, uint8_t& rmult, uint8_t& caller, uint8_t& bondOn);
ResultCode BondSetParams(uint8_t bcr, uint8_t rmult, uint8_t caller, uint8_t bondOn);

// The phone numbers, of which only the local ones can be set. Other kinds answer
// VXD_INVALID_PARAMETER unreported.
ResultCode BondGetPhones(PhoneWords& words);
ResultCode BondSetPhones(const PhoneWords& words);
