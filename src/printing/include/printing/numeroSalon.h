// SPDX-License-Identifier: MIT
// The classroom number at the start of a line of the classroom list.
#pragma once

#include <QString>

// Leading blanks are passed over; reading stops at the first character that cannot continue a
// number; a text that begins with none gives 0.
double numeroSalon(const QString &linea);

// The number in plain decimal, as the queries carry it: no exponent, no trailing zeros.
QString enDecimal(double numero);
