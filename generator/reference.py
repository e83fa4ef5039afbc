def render_reference(model):
    return []
