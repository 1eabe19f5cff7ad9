// The script appended to a report card.
#pragma once

#include <QString>

// Fills in the school's name, slogan, code, address and telephone.
QString guionBoletin();
