namespace Korvane.Signpad
{
    /// <summary>The pad models.</summary>
    public enum Model
    {
        /// <summary>With live images and an office canvas.</summary>
        S210,
        /// <summary>With a screen.</summary>
        S300,
        /// <summary>With a fingerprint sensor.</summary>
        S310X,
        /// <summary>Without a screen of its own.</summary>
        R800,
        /// <summary>Without a screen of its own.</summary>
        M450,
    }

    /// <summary>A tap on the pad's buttons.</summary>
    public enum Tap
    {
        /// <summary>The signer wants to begin anew, or not to sign.</summary>
        Cancel,
        /// <summary>The signer is done.</summary>
        Confirm,
    }

    /// <summary>Formats of pictures.</summary>
    public enum ImageKind
    {
        /// <summary>Without loss, large.</summary>
        Bmp = EncodedImageType.Bitmap,
        /// <summary>With some loss.</summary>
        Jpeg = EncodedImageType.Jpeg,
        /// <summary>Without loss; white is see-through unless one says otherwise.</summary>
        Png = EncodedImageType.Png,
    }
}
