# sources of this layer
