#pragma once

// KELMARO_ROUND: rounds the real fields of records to as many digits as the description writes in
// the field's default and values. The selection stays.
void roundValues();
