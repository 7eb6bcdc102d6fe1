#pragma once

#include <array>

namespace chromalog {

using Vector3 = std::array<double, 3>;

/// Three rows of three. Inverses are computed, not copied, so that a conversion and its way back agree to the
/// last bits of a double.
struct Matrix3 {
    std::array<Vector3, 3> rows{};

    constexpr Vector3 operator*(const Vector3& v) const {
        Vector3 product{};
        for (int row = 0; row < 3; ++row)
            product[row] = rows[row][0] * v[0] + rows[row][1] * v[1] + rows[row][2] * v[2];
        return product;
    }

    constexpr Matrix3 operator*(const Matrix3& other) const {
        Matrix3 product;
        for (int row = 0; row < 3; ++row)
            for (int column = 0; column < 3; ++column)
                for (int k = 0; k < 3; ++k)
                    product.rows[row][column] += rows[row][k] * other.rows[k][column];
        return product;
    }

    /// Of a regular matrix.
    constexpr Matrix3 inverse() const {
        Matrix3 adjugate;
        for (int row = 0; row < 3; ++row)
            for (int column = 0; column < 3; ++column) {
                const Vector3& a = rows[(column + 1) % 3];
                const Vector3& b = rows[(column + 2) % 3];
                adjugate.rows[row][column] =
                    a[(row + 1) % 3] * b[(row + 2) % 3] - a[(row + 2) % 3] * b[(row + 1) % 3];
            }
        const Vector3& first = rows[0];
        const double determinant =
            first[0] * adjugate.rows[0][0] + first[1] * adjugate.rows[1][0] + first[2] * adjugate.rows[2][0];
        for (Vector3& row : adjugate.rows)
            for (double& value : row)
                value /= determinant;
        return adjugate;
    }

    static constexpr Matrix3 diagonal(const Vector3& v) {
        return {{{{v[0], 0, 0}, {0, v[1], 0}, {0, 0, v[2]}}}};
    }
};

} // namespace chromalog
