"""Activity coefficients of the NRTL model, and boiling points at low pressure."""

import numpy as np


class Nrtl:
    """The model for a mixture whose pairs libraries have.

    tau_ij = aij + bij/T + cij/T^2 and alpha = alphaij + betaij T, T in K, as `Item.equation` says.

    Parameters
    ----------
    libs : zelaccess.Libraries
    components : sequence of str
    """

    def __init__(self, libs, components):
        n = len(components)
        self.a, self.b, self.c, self.alpha, self.beta = np.zeros((5, n, n))
        for i in range(n):
            for j in range(i + 1, n):
                pair = libs.pair("NRTL", components[i], components[j])
                self.a[i, j], self.a[j, i] = pair.aij, pair.aji
                self.b[i, j], self.b[j, i] = pair.bij, pair.bji
                self.c[i, j], self.c[j, i] = pair.cij, pair.cji
                self.alpha[i, j] = self.alpha[j, i] = pair.alphaij
                self.beta[i, j] = self.beta[j, i] = pair.betaij

    def gamma(self, x, temperature):
        """Activity coefficients at mole fractions x and a temperature in K."""
        tau = self.a + self.b / temperature + self.c / temperature**2
        weight = np.exp(-(self.alpha + self.beta * temperature) * tau)
        down = x @ weight
        up = x @ (tau * weight)
        return np.exp(up / down + (x / down * weight * (tau - up / down)).sum(axis=1))


def bubble_point(curves, model, x, pressure):
    """The boiling point in K, and the mole fractions of the vapor, at a pressure in kPa."""
    x = np.asarray(x, dtype=float)
    low, high = 250.0, 500.0
    for _ in range(60):
        middle = 0.5 * (low + high)
        partial = x * model.gamma(x, middle) * np.array([curve(middle) for curve in curves])
        if partial.sum() < pressure:
            low = middle
        else:
            high = middle
    return middle, partial / partial.sum()
